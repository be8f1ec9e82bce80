#include "printer/printer_script.h"

#include "link/frame.h"
#include "printer/face_view.h"
#include "printer/line_speed.h"
#include "printer/printer_model.h"
#include "printer/printer_server.h"

#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

#include <algorithm>
#include <charconv>
#include <utility>

namespace vantrel {
namespace {

constexpr int kDefaultWait = 10000;  // milliseconds
constexpr int kLongestWait = 3600000;
constexpr std::string_view kHelp =
    "help | insert [ordinary|cleaning] | pull | track N TEXT | read track N | state | face PATH | "
    "log [PATH] | fault TEXT | power on|off | series ql7|ql8 | speed BPS | wait frame [CODE] [MS] "
    "| quit";

// The first word, and what follows it after one or more blanks.
std::pair<std::string_view, std::string_view> Split(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(word.size());
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return {word, text};
}

std::optional<int> NumberIn(std::string_view text, int base) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// A command code as "41" or "41h".
std::optional<std::uint8_t> CodeIn(std::string_view text) {
  if (text.size() == 3 && (text[2] == 'h' || text[2] == 'H')) text.remove_suffix(1);
  const auto code = text.size() == 2 ? NumberIn(text, 16) : std::nullopt;
  if (!code || *code < 0) return std::nullopt;
  return static_cast<std::uint8_t>(*code);
}

// A track's text: a backslash and two hex digits after an "x" stand for one byte, two backslashes
// for one. Nothing when a backslash is followed by anything else.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    std::size_t length = 1;
    char byte = text[0];
    if (text.starts_with("\\\\")) {
      length = 2;
    } else if (byte == '\\') {
      const auto value = text.starts_with("\\x") ? NumberIn(text.substr(2, 2), 16) : std::nullopt;
      if (!value || text.size() < 4 || *value < 0) return std::nullopt;
      byte = static_cast<char>(*value);
      length = 4;
    }
    bytes += byte;
    text.remove_prefix(length);
  }
  return bytes;
}

std::string Escaped(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (byte == '\\')
      text += "\\\\";
    else if (byte < 0x20 || byte > 0x7E)
      text += "\\x" + HexOf(static_cast<std::uint8_t>(byte));
    else
      text += byte;
  }
  return text;
}

// Whether the entry is a whole frame of the console with a good block check.
bool IsGoodCommand(const LogEntry& entry) {
  const std::string& bytes = entry.bytes;
  if (entry.direction != Direction::kFromConsole || bytes.size() < 4 || bytes[0] != '\x02' ||
      bytes[bytes.size() - 2] != '\x03')
    return false;
  char check = 0;
  for (std::size_t i = 1; i < bytes.size(); ++i) check = static_cast<char>(check ^ bytes[i]);
  return check == 0;
}

// Track "1" to "3" as 0 to 2.
std::optional<std::size_t> TrackIn(std::string_view text) {
  if (text.size() != 1 || text[0] < '1' || text[0] > '3') return std::nullopt;
  return static_cast<std::size_t>(text[0] - '1');
}

}  // namespace

PrinterScript::PrinterScript(PrinterModel& model, PrinterServer& server, LineRecorder& recorder,
                             QObject* parent)
    : QObject(parent), model_(model), server_(server), recorder_(recorder) {
  wait_limit_.setSingleShot(true);
  connect(&wait_limit_, &QTimer::timeout, this, [this] {
    const int milliseconds = std::exchange(wait_, std::nullopt)->milliseconds;
    Answer("error no such frame came in " + std::to_string(milliseconds) + " milliseconds");
    Work();
  });
  // Later, because the printer tells of bytes before it has taken them.
  connect(&recorder_, &LineRecorder::Recorded, this, &PrinterScript::LookForFrame,
          Qt::QueuedConnection);
}

void PrinterScript::Feed(std::string_view text) {
  for (const char character : text) {
    if (character == '\n')
      lines_.push_back(std::exchange(text_, {}));
    else if (character != '\r')
      text_ += character;
  }
  Work();
}

void PrinterScript::End() {
  if (!text_.empty()) lines_.push_back(std::exchange(text_, {}));
  ended_ = true;
  Work();
}

void PrinterScript::Work() {
  // What a command does may come back here.
  if (working_) return;
  working_ = true;
  while (!wait_ && !finished_ && !lines_.empty()) {
    const std::string line = std::move(lines_.front());
    lines_.pop_front();
    const std::string_view word = Split(line).first;
    if (word.empty() || word[0] == '#') continue;
    const std::string answer = Do(line);
    if (!answer.empty()) Answer(answer);
    if (wait_) LookForFrame();
    if (word == "quit" && answer == "ok") finished_ = true;
  }
  working_ = false;
  if (!wait_ && lines_.empty() && ended_) finished_ = true;
  if (finished_) emit Finished();
}

std::string PrinterScript::Do(const std::string& line) {
  const auto [word, rest] = Split(line);
  if (word == "help") return "ok " + std::string(kHelp);
  if (word == "insert") return Insert(rest);
  if (word == "pull") return PullOut(rest);
  if (word == "track") return WriteTrack(rest);
  if (word == "read") return ReadTrack(rest);
  if (word == "state") return rest.empty() ? State() : "error state takes no parameter";
  if (word == "face") return SaveFace(rest);
  if (word == "log") return Log(rest);
  if (word == "fault") return Fault(rest);
  if (word == "power") return Power(rest);
  if (word == "series") return ChangeSeries(rest);
  if (word == "speed") return ChangeSpeed(rest);
  if (word == "wait") return BeginWait(rest);
  if (word == "quit") return rest.empty() ? "ok" : "error quit takes no parameter";
  return "error unknown command \"" + Escaped(word) + "\"; help tells the commands";
}

std::string PrinterScript::Insert(std::string_view rest) {
  if (!rest.empty() && rest != "cleaning" && rest != "ordinary")
    return "error a card is \"ordinary\" or \"cleaning\"";
  if (model_.State().place != CardPlace::kOutside) return "error there is a card in the printer";
  if (!rest.empty())
    model_.SetCardKind(rest == "cleaning" ? CardKind::kCleaning : CardKind::kOrdinary);
  return server_.InsertCard() ? "ok" : "error the card cannot be put in now";
}

std::string PrinterScript::PullOut(std::string_view rest) {
  if (!rest.empty()) return "error pull takes no parameter";
  if (model_.State().place == CardPlace::kOutside) return "error there is no card in the printer";
  return server_.PullOutCard() ? "ok" : "error a command moves the card";
}

std::string PrinterScript::WriteTrack(std::string_view rest) {
  const auto [number, text] = Split(rest);
  const auto track = TrackIn(number);
  if (!track) return "error the track is 1, 2 or 3";
  const auto contents = Unescaped(text);
  if (!contents) return "error after a backslash comes x and two hex digits, or a backslash";
  if (contents->size() > kTrackLength.at(*track))
    return "error the track holds " + std::to_string(kTrackLength.at(*track)) + " bytes";
  const bool recordable = std::all_of(contents->begin(), contents->end(), [](char byte) {
    return byte == 0x01 || (byte >= 0x04 && byte <= 0x7E);
  });
  if (!recordable) return "error a track holds 01h and 04h to 7Eh alone";
  model_.SetTrack(*track, *contents);
  return "ok";
}

std::string PrinterScript::ReadTrack(std::string_view rest) {
  const auto [word, number] = Split(rest);
  const auto track = TrackIn(number);
  if (word != "track" || !track) return "error read takes \"track\" and 1, 2 or 3";
  const std::string& contents = model_.State().card.tracks.at(*track);
  return contents.empty() ? "ok" : "ok " + Escaped(contents);
}

std::string PrinterScript::State() const {
  const PrinterState& state = model_.State();
  return std::string("ok card ") +
         (state.card.kind == CardKind::kCleaning ? "cleaning" : "ordinary") + ", " +
         std::string(PlaceInWords(state.place)) + "; printer " + model_.ActivityInWords() +
         "; LED " + LedInWords(state.indicators) + "; buzzer " +
         std::string(BuzzerInWords(state.indicators)) + "; transports " +
         std::to_string(state.transports) + "; prints " + std::to_string(state.prints);
}

std::string PrinterScript::SaveFace(std::string_view rest) const {
  const std::string path(rest);
  const bool png = path.ends_with(".png");
  if (!png && !path.ends_with(".pbm")) return "error face takes a path that ends in .png or .pbm";
  QSaveFile file(QFile::decodeName(path.c_str()));
  QImageWriter writer(&file, png ? "png" : "pbm");
  if (file.open(QIODevice::WriteOnly) && writer.write(ImageOf(model_.State().card.face)) &&
      file.commit())
    return "ok";
  return "error " + path + " was not saved: " + file.errorString().toStdString();
}

std::string PrinterScript::Log(std::string_view rest) const {
  const std::string error = rest.empty() ? "" : SaveLog(recorder_.Log(), std::string(rest));
  if (!error.empty()) return "error " + error;
  return "ok " + std::to_string(recorder_.Log().End() - recorder_.Log().First());
}

std::string PrinterScript::Fault(std::string_view rest) {
  std::string error = "this printer takes no faults";
  if (rest.empty()) return "error fault takes the fault to have";
  return set_fault_ && set_fault_(std::string(rest), error) ? "ok" : "error " + error;
}

std::string PrinterScript::Power(std::string_view rest) {
  if (rest != "on" && rest != "off") return "error power takes \"on\" or \"off\"";
  server_.SetPower(rest == "on");
  return "ok";
}

std::string PrinterScript::ChangeSeries(std::string_view rest) {
  if (rest != "ql7" && rest != "ql8") return "error series takes \"ql7\" or \"ql8\"";
  model_.SetSeries(rest == "ql8" ? Series::kQl8 : Series::kQl7);
  return "ok";
}

std::string PrinterScript::ChangeSpeed(std::string_view rest) {
  const auto speed = NumberIn(rest, 10);
  if (!speed || *speed < kLowestSpeed || *speed > kHighestSpeed) {
    return "error speed takes a number from " + std::to_string(kLowestSpeed) + " to " +
           std::to_string(kHighestSpeed);
  }
  model_.SetSpeed(*speed);
  return "ok";
}

std::string PrinterScript::BeginWait(std::string_view rest) {
  constexpr const char* kUsage =
      "error wait takes \"frame\", a code of two hex digits, and milliseconds up to 3600000";
  const auto [word, parameters] = Split(rest);
  if (word != "frame") return kUsage;
  auto [first, second] = Split(parameters);
  Wait wait{CodeIn(first), kDefaultWait};
  if (wait.code) first = std::exchange(second, {});
  if (!first.empty()) {
    const auto milliseconds = NumberIn(first, 10);
    if (!milliseconds || *milliseconds < 0 || *milliseconds > kLongestWait || !second.empty())
      return kUsage;
    wait.milliseconds = *milliseconds;
  }
  wait_ = wait;
  wait_limit_.start(wait.milliseconds);
  return {};
}

void PrinterScript::LookForFrame() {
  if (!wait_) return;
  const LineLog& log = recorder_.Log();
  for (seen_ = std::max(seen_, log.First()); seen_ < log.Settled(); ++seen_) {
    const LogEntry& entry = log.At(seen_);
    if (!IsGoodCommand(entry)) continue;
    if (wait_->code && static_cast<std::uint8_t>(entry.bytes[1]) != *wait_->code) continue;
    ++seen_;
    wait_.reset();
    wait_limit_.stop();
    Answer("ok " + MeaningOf(entry));
    Work();
    return;
  }
}

void PrinterScript::Answer(const std::string& answer) {
  emit Answered(QString::fromLocal8Bit(answer.c_str()));
}

}  // namespace vantrel
