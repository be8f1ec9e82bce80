#pragma once

#include "printer/command.h"
#include "printer/fault.h"
#include "printer/line_receiver.h"
#include "printer/outgoing_line.h"
#include "printer/printer_state.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel {

// A reply that follows its 06h later comes at least this long after the last bytes sent, so that a
// console that discards its input right after each read does not lose it.
inline constexpr std::chrono::milliseconds kReplyGap{20};
// Commands that may stand in line behind one at work; a further one is rejected with 10h.
inline constexpr std::size_t kLongestLine = 16;

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
  // The sink gets each chunk of bytes to write to the line, the listener each chance that something
  // visible has changed, and the third is called when the device is to vanish from the console's
  // side. None may call the model's changing members.
  void OnSend(std::function<void(const Bytes& chunk)> sink) { send_ = std::move(sink); }
  void OnChange(std::function<void()> listener) { change_ = std::move(listener); }

  void OnVanish(std::function<void()> action) { vanish_ = std::move(action); }

  // Bytes from the line, in any split. Time never goes back from call to call.
  void Receive(std::span<const std::uint8_t> bytes, Moment now);
  // Does what is due. Call it at NextAdvance() or later.
  void Advance(Moment now);
  // When Advance must be called at the latest; nothing while the printer only waits.
  std::optional<Moment> NextAdvance() const;

  // A person's hand. Each returns false, and does nothing, where a hand could not do it: a card is
  // put in when it is outside, pulled out when it is not outside and nothing moves it, changed for
  // another kind or another card when it is outside.
  bool InsertCard(Moment now);
  bool PullOutCard(Moment now);
  bool SetCardKind(CardKind kind);
  bool ChangeCard(Card card);
  // Records `contents` on a track (0 to 2) of the card, wherever the card is. Bytes that no track
  // holds (all but 01h and 04h to 7Eh) are left out, what is longer than the track is cut off.
  void SetTrack(std::size_t track, std::string_view contents);

  // The power switch; on at start. Off, the printer ends everything it does without an answer,
  // hears nothing and shows nothing; a hand still reaches the card. Switched on, everything is as
  // at the start but for the card and its place, the counters, and what 5Bh and 91h have stored:
  // that comes into force.
  void SetPower(bool on, Moment now);
  // How the printer is made and fitted: a QL-7 without the case accessory parts at start.
  void SetSeries(Series series);
  void SetCaseParts(bool fitted);
  // The code page of the text of 41h, that of the system's language at start.
  void SetCodePage(CodePage page) { state_.code_page = page; }
  // What goes wrong with the next commands, in place of what was to go wrong; nothing to have all
  // go well. Every frame with a good block check is a command to it, one that is rejected too.
  // Power and reset leave it.
  void SetFault(std::optional<Fault> fault);
  // What is still to go wrong, with the number of commands that are left.
  const std::optional<Fault>& CurrentFault() const { return fault_; }
  // The printer's speed in bits a second, 9600 at start, and that of the console, which counts as
  // the printer's until it is told. Both must be greater than 0.
  void SetSpeed(int speed);
  void SetConsoleSpeed(int speed) { console_speed_ = speed; }
  int Speed() const { return speed_; }
  // Whether the speeds matter; false at start. Where they do, all that is sent takes the time that
  // it takes on the line, and a console at another speed and the printer each hear of the other
  // what a line at the wrong speed makes of it: noise, or nothing.
  void SetPacing(bool pacing);
  bool Pacing() const { return pacing_; }
  // Whether every command's work takes no time; false at start.
  void SetInstantWork(bool instant) { instant_ = instant; }

  const PrinterState& State() const { return state_; }
  // Whether a command is at work at this moment; its card is moving then.
  bool IsWorking() const { return work_.has_value(); }
  // What the printer is doing: "Idle", "Switched off", "21h waits for a card", "51h is at work" ...
  std::string ActivityInWords() const;

 private:
  struct Job {
    const CommandRow* row = nullptr;
    Command command;
    std::shared_ptr<const Fault> fault;  // null where all goes well

    bool Has(Fault::Kind kind) const { return fault && fault->kind == kind; }
  };
  struct LaterReply {
    Bytes frame;
    std::chrono::milliseconds gap;
    Moment due;
  };
  struct Work {
    Job job;
    Moment done{0};
  };
  enum class Step { kWork, kInstantWork, kRefuse, kAwaitInsertion, kAwaitRemoval };

  // What time alone has brought about by `now`.
  void LetTimePass(Moment now);
  void Accept(const Arrival& arrival, Moment now);
  // Spends the fault that is to come on a command, and does it where it leaves the command undone;
  // says whether it does.
  bool IsStopped(Job& job);
  bool SpeedsDiffer() const;
  bool IsTaken(const CommandRow& row, const Command& command) const;
  void Begin(Job job, Moment now);
  void BeginNext(Moment now);
  void DoDueWork(Moment now);
  void Finish(const Job& job);
  void Answer(const Job& job, const Reply& reply);
  // What goes out next together with what was kept back for it.
  void Put(const Bytes& chunk, std::chrono::milliseconds gap, Moment now);
  void EndEverything();
  Step NextStep(const Job& job);
  void Flush(Moment now);

  PrinterState state_;
  LineReceiver receiver_;
  bool instant_ = false;
  std::optional<Job> waiting_;  // until a person does something
  std::optional<Work> work_;    // under way
  std::deque<Job> line_;        // behind the work

  // Whether an answer of this moment still shares the chunk of its 06h.
  bool acknowledging_ = false;
  Bytes chunk_;
  std::chrono::milliseconds chunk_gap_{0};
  std::deque<LaterReply> later_replies_;
  Bytes kept_back_;
  OutgoingLine outgoing_;
  std::optional<Moment> last_sent_;
  std::function<void(const Bytes&)> send_;
  std::function<void()> change_;
  std::function<void()> vanish_;

  std::optional<Fault> fault_;
  unsigned resends_ = 0;  // of the frame that the fault has sent again
  bool vanishing_ = false;
  bool pacing_ = false;
  int speed_ = 9600;
  std::optional<int> console_speed_;
};

}  // namespace vantrel
