// SPDX-License-Identifier: MIT
#pragma once

#include "printer/commands/command.h"
#include "printer/commands/printer_state.h"
#include "printer/line/incoming_line.h"
#include "printer/model/answers.h"
#include "printer/model/fault_plan.h"
#include "protocol/line_receiver.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::printer {

// Commands that may stand in line behind one at work; a further one is rejected with 10h.
inline constexpr std::size_t kLongestLine = 16;

// What the printer is doing.
enum class Activity { kIdle, kWork, kCardWait, kRemovalWait, kOff };

// The printer without its line: bytes in, bytes and state changes out, time handed in. It sends
// nothing before it is spoken to, and never more than one chunk a call.
//
// 06h answers an accepted frame at once, 15h a bad block check, 10h a command or a parameter that
// the printer does not take. The reply frame follows when the work is done; where the work takes no
// time, it goes out in the same chunk as its 06h.
//
// A command without card and work time is served at any moment. Any other one takes the place of a
// command that waits for a person (that one is given up and never answered), and stands in line
// behind a command at work. 54h and 55h end the wait for a card and for its removal, 5Fh ends
// everything, what has not gone out yet too; what they end is not answered either.
class PrinterModel {
 public:
  // The fonts, which must outlive the model, draw the text of 41h and 4Eh; that of 41h is in the
  // code page.
  PrinterModel(Fonts& fonts, link::CodePage code_page) : state_(fonts, code_page) {}

  // The sink gets each chunk of bytes to write to the line, the listener each chance that something
  // visible has changed, and the third is called when the device is to vanish from the console's
  // side. None may call the model's changing members.
  void OnSend(std::function<void(const link::Bytes& chunk)> sink) { send_ = std::move(sink); }
  void OnChange(std::function<void()> listener) { change_ = std::move(listener); }

  void OnVanish(std::function<void()> action) { vanish_ = std::move(action); }
  // Called for each answer right after its last byte has gone to the sink. What a fault suppresses
  // is no answer.
  void OnAnswered(std::function<void(const Answered& answer)> listener) {
    answered_ = std::move(listener);
  }
  // Called with all that the console says, in order, as the line has carried it over; a frame's
  // last byte comes right before the printer does anything with it. What a printer at another speed
  // mishears is told as it was said.
  void OnHear(
      std::function<void(std::span<const std::uint8_t> bytes, protocol::Moment when)> listener) {
    hear_ = std::move(listener);
  }
  // Called, right after a frame was heard, with each fault that strikes it and what that does, see
  // StruckInWords.
  void OnStrike(std::function<void(const std::string& fault)> listener) {
    strike_ = std::move(listener);
  }
  // Called, right after a frame was heard, with what else there is to remark on it.
  void OnRemark(std::function<void(const std::string& remark)> listener) {
    remark_ = std::move(listener);
  }

  // Bytes from the line, in any split. Time never goes back from call to call. With pacing, they
  // are heard when the line has carried them over.
  void Receive(std::span<const std::uint8_t> bytes, protocol::Moment now);
  // Whether there is room for more: while much is on its way, a line makes its console wait.
  bool TakesMore() const;
  // Does what is due. Call it at NextAdvance() or later.
  void Advance(protocol::Moment now);
  // When Advance must be called at the latest; nothing while the printer only waits.
  std::optional<protocol::Moment> NextAdvance() const;

  // How many whole frames have come, good and bad, or which of them was the last of a code; counted
  // from 1, 0 where none has.
  std::size_t LastHeard() const { return heard_; }
  std::size_t LastHeard(std::uint8_t code) const { return last_heard_[code]; }
  // Whether time alone will bring an answer: a command is at work or stands in line behind one, or
  // bytes are on their way in or out. What waits for a person counts no more than what a fault
  // keeps back for another answer.
  bool IsBusy() const;

  // A person's hand. Each returns false, and does nothing, where a hand could not do it: a card is
  // put in when it is outside, pulled out when it is not outside and nothing moves it, changed for
  // another kind or another card when it is outside.
  bool InsertCard(protocol::Moment now);
  bool PullOutCard(protocol::Moment now);
  bool SetCardKind(CardKind kind);
  bool ChangeCard(Card card);
  // Does what 52h does, without an answer. False where the button has no effect: it is disabled,
  // the printer is switched off, or as many commands as can be stand in line.
  bool PressCleaningButton(protocol::Moment now);
  // Records `contents` on a track (0 to 2) of the card, wherever the card is. Bytes that no track
  // holds (all but 01h and 04h to 7Eh) are left out, what is longer than the track is cut off.
  void SetTrack(std::size_t track, std::string_view contents);

  // The power switch; on at start. Off, the printer ends everything it does without an answer,
  // hears nothing and shows nothing; a hand still reaches the card. Switched on, everything is as
  // at the start but for the card and its place, the counters, and what 5Bh and 91h have stored:
  // that comes into force.
  void SetPower(bool on, protocol::Moment now);
  // How the printer is made and fitted: a QL-7 without the case accessory parts at start.
  void SetSeries(Series series);
  void SetCaseParts(bool fitted);
  // The code page of the text of 41h, from the next command on.
  void SetCodePage(link::CodePage code_page);
  // What goes wrong with commands. Every frame with a good block check is a command to it, one that
  // is rejected too. Power and reset leave it.
  const FaultPlan& Faults() const { return faults_; }
  // These change the plan as its functions of like names do, and tell the listener.
  FaultPlan::Id ReplaceFaults(Fault fault);
  FaultPlan::Id AddFault(Fault fault);
  bool ClearFault(FaultPlan::Id id);
  void ClearFaults();
  // The printer's speed in bits a second, 9600 at start, and that of the console, which counts as
  // the printer's until it is told. Both must be greater than 0.
  void SetSpeed(int speed);
  void SetConsoleSpeed(int speed) { console_speed_ = speed; }
  int Speed() const { return speed_; }
  // Whether the speeds matter; false at start. Where they do, all that is sent and received takes
  // the time that it takes on the line, and a console at another speed and the printer each hear of
  // the other what a line at the wrong speed makes of it: noise, or nothing.
  void SetPacing(bool pacing);
  bool Pacing() const { return pacing_; }
  // Whether every command's work takes no time; false at start.
  void SetInstantWork(bool instant) { instant_ = instant; }

  const PrinterState& State() const { return state_; }
  // Whether a command is at work at this moment; its card is moving then.
  bool IsWorking() const { return work_.has_value(); }
  Activity CurrentActivity() const;
  // The code of the command that is at work or waits for a person; nothing when none does.
  std::optional<std::uint8_t> CommandUnderWay() const;
  // What the printer is doing: "Idle", "Switched off", "21h waits for a card", "51h is at work" ...
  std::string ActivityInWords() const;

 private:
  struct Job {
    PreparedCommand command;
    Asked asked;

    bool Has(Fault::Kind kind) const { return asked.strikes.Has(kind); }
  };
  struct Work {
    Job job;
    protocol::Moment done{0};
  };
  enum class Step { kWork, kInstantWork, kRefuse, kAwaitInsertion, kAwaitRemoval };

  // What time alone has brought about by `now`, and what the console has said by then.
  void LetTimePass(protocol::Moment now);
  void LetWorkPass(protocol::Moment now);
  void Hear(const IncomingLine::Part& part);
  void TellHeard(std::span<const std::uint8_t> bytes, protocol::Moment when);
  void Accept(const protocol::Arrival& arrival, protocol::Moment now);
  // The faults that strike a frame, of which the listener is told.
  Strikes StrikesOn(const protocol::Arrival& arrival);
  // Does what leaves the command undone; says whether there is such a fault.
  bool IsStopped(Asked& asked);
  // Does the command or finds it a place; what it is answered with at once shares a chunk.
  void Serve(std::span<const std::uint8_t> content, Asked asked, protocol::Moment now);
  bool SpeedsDiffer() const;
  void Begin(Job job, protocol::Moment now);
  void BeginNext(protocol::Moment now);
  void DoDueWork(protocol::Moment now);
  void Finish(Job& job);
  void EndEverything();
  Step NextStep(const Job& job);
  void Flush(protocol::Moment now);

  PrinterState state_;
  std::size_t heard_ = 0;
  std::array<std::size_t, 256> last_heard_{};
  IncomingLine incoming_;
  protocol::LineReceiver receiver_;
  bool instant_ = false;
  std::optional<Job> waiting_;  // until a person does something
  std::optional<Work> work_;    // under way
  std::deque<Job> line_;        // behind the work

  Answers answers_;
  FaultPlan faults_;
  bool vanishing_ = false;
  std::function<void(const link::Bytes&)> send_;
  std::function<void()> change_;
  std::function<void()> vanish_;
  std::function<void(const Answered&)> answered_;
  std::function<void(std::span<const std::uint8_t>, protocol::Moment)> hear_;
  std::function<void(const std::string&)> strike_;
  std::function<void(const std::string&)> remark_;

  bool pacing_ = false;
  int speed_ = 9600;
  std::optional<int> console_speed_;
};

}  // namespace vantrel::printer
