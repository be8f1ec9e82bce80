// SPDX-License-Identifier: MIT

// Network analysers read the captures that the built program makes.

#include "log/capture_file.h"
#include "tests/log/analyser/analyser_run.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace vantrel::printer {
namespace {

using testing::ElementsAre;

// What stands before the fields: "01|2|" for a packet to the printer, "02|1|" for one from it, by
// the header's event and by the packet's flags.
constexpr const char* kFields =
    "-T fields -E separator='|' -e rtacser.eventtype -e frame.packet_flags_direction"
    " -e frame.comment -e cardprinter.kind -e cardprinter.code -e cardprinter.status"
    " -e cardprinter.data -e cardprinter.check -e cardprinter.check.good -e _ws.expert.message"
    " -e cardprinter.meaning -e _ws.col.Info";

class PrinterAnalyser : public PrinterProgram {
 protected:
  QString Path() const { return QString::fromStdString(home_.Path("line.pcapng")); }

  // The software printer with a script, and its console, in a session with all that a line may have
  // on it, at the end of which the program ends.
  void Record() {
    const std::string device =
        Serve({"--script", "--no-pacing", "--instant", "--capture", Path(), "--card"});
    const support::DeviceUser console(device);
    const auto exchange = [&](const char* frame, const char* answer) {
      console.Write(frame);
      const std::string right = answer;
      EXPECT_EQ(console.Read((right.size() + 1) / 3), right);
    };
    const auto with_fault = [&](const char* fault, const char* answer) {
      program_.write(("fault " + std::string(fault) + "\n").c_str());
      EXPECT_EQ(ReadLine(), "ok");
      exchange("02 95 03 96", answer);
    };
    program_.write("track 1 A\"B\n");
    EXPECT_EQ(ReadLine(), "ok");
    exchange("02 21 03 22", "06 02 21 20 41 22 42 03 23");
    exchange("02 95 03 97", "15");
    with_fault("status 22", "06 02 95 22 03 B4");
    with_fault("bad-bcc zero", "06 02 95 20 31 03 00");
    with_fault("noise FF00", "FF 00 06 02 95 20 31 03 87");
    with_fault("reject", "10");
    console.Write("FF FE");
    // Direction 2, X 0, Y 47, "A", ESC E 22, CR LF, 93 FA, CR LF, CR, 80h.
    exchange("02 41 32 2C 30 2C 34 37 2C 41 1B 45 32 32 0D 0A 93 FA 0D 0A 0D 80 03 94",
             "06 02 41 20 03 62");
    with_fault("truncate", "06 02 95 20 31");
    exchange("02 95 03 96", "06 02 95 20 31 03 87");
    console.Write("02 35 41");
    // Its silence completes it.
    EXPECT_TRUE(support::WaitFor([this] {
      std::vector<std::string> damage;
      return log::ReadCapture(Path().toStdString(), damage).size() == 28;
    }));
    program_.write("quit\n");
    EXPECT_EQ(End(), 0);
  }

  log::AnalyserHome home_;
};

TEST_F(PrinterAnalyser, ReadsEveryField) {
  Record();
  EXPECT_THAT(
      home_.Run("tshark -r line.pcapng " + std::string(kFields)).lines,
      ElementsAre(
          "0x01|0x00000002||frame|0x21|||0x22|1||21h first track read|21h first track read",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          R"(0x02|0x00000001||frame|0x21|0x20|412242|0x23|1||reply 21h: 20h normal status, "A\"B"|)"
          R"(reply 21h: 20h normal status, "A\"B")",
          "0x01|0x00000002||frame|0x95|||0x97|0|Bad block check|"
          "bad block check 97h instead of 96h: 95h card transport count request|"
          "bad block check 97h instead of 96h: 95h card transport count request",
          "0x02|0x00000001||control|||||||15h resend|15h resend",
          "0x01|0x00000002|fault: status 22 (status 22h answers in place of the work)|"
          "frame|0x95|||0x96|1|fault: status 22 (status 22h answers in place of the work)|"
          "95h card "
          "transport count request|"
          "95h card transport count request",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          "0x02|0x00000001||frame|0x95|0x22||0xb4|1||reply 95h: 22h no targeted Card|"
          "reply 95h: 22h no targeted Card",
          "0x01|0x00000002|fault: bad-bcc zero (the reply goes with the block check 00h, FFh where "
          "00h is good)|"
          "frame|0x95|||0x96|1|fault: bad-bcc zero (the reply goes with the block check 00h, FFh "
          "where 00h is good)|"
          ""
          "95h card transport count request|95h card transport count request",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          "0x02|0x00000001||frame|0x95|0x20|31|0x00|0|Bad block check|"
          "bad block check 00h instead of 87h: reply 95h: 20h normal status, \"1\"|"
          "bad block check 00h instead of 87h: reply 95h: 20h normal status, \"1\"",
          "0x01|0x00000002|fault: noise FF00 (the noise FF00 goes before the answer)|"
          "frame|0x95|||0x96|1|fault: noise FF00 (the noise FF00 goes before the answer)|"
          ""
          "95h card transport count request|95h card transport count request",
          "0x02|0x00000001||bytes|||||||noise, 2 bytes|noise, 2 bytes",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          "0x02|0x00000001||frame|0x95|0x20|31|0x87|1||reply 95h: 20h normal status, \"1\"|"
          "reply 95h: 20h normal status, \"1\"",
          "0x01|0x00000002|fault: reject (10h answers and the command is left undone)|"
          "frame|0x95|||0x96|1|fault: reject (10h answers and the command is left undone)|"
          "95h card transport "
          "count request|"
          "95h card transport count request",
          "0x02|0x00000001||control|||||||10h reject|10h reject",
          "0x01|0x00000002||bytes|||||||noise, 2 bytes|noise, 2 bytes",
          "0x01|0x00000002||frame|0x41||322c302c34372c411b4532320d0a93fa0d0a0d80|0x94|1||"
          "41h print data: \"2,0,47,A\", ESC, \"E22\", CR LF, bytes 93 FA, CR LF, CR, 80h|"
          "41h print data: \"2,0,47,A\", ESC, \"E22\", CR LF, bytes 93 FA, CR LF, CR, 80h",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          "0x02|0x00000001||frame|0x41|0x20||0x62|1||reply 41h: 20h normal status|"
          "reply 41h: 20h normal status",
          "0x01|0x00000002|fault: truncate (the reply goes without its last two bytes)|"
          "frame|0x95|||0x96|1|fault: truncate (the reply goes without its last two bytes)|"
          "95h card transport "
          "count request|"
          "95h card transport count request",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          // The 06h after a reply that was cut short stands alone.
          "0x02|0x00000001||frame|0x95|0x20|31||||"
          "cut short after 4 bytes: reply 95h: 20h normal status, \"1\"|"
          "cut short after 4 bytes: reply 95h: 20h normal status, \"1\"",
          "0x01|0x00000002||frame|0x95|||0x96|1||95h card transport count request|"
          "95h card transport count request",
          "0x02|0x00000001||control|||||||06h acknowledge|06h acknowledge",
          "0x02|0x00000001||frame|0x95|0x20|31|0x87|1||reply 95h: 20h normal status, \"1\"|"
          "reply 95h: 20h normal status, \"1\"",
          "0x01|0x00000002||frame|0x35||41||||"
          "cut short after 3 bytes: 35h first track data set, reverse 7-bit: \"A\"|"
          "cut short after 3 bytes: 35h first track data set, reverse 7-bit: \"A\""));
  // Nothing but the two of them is told of, and each frame's own time is that of its header.
  const log::AnalyserRun times = home_.Run(
      "tshark -r line.pcapng -T fields -e frame.time_epoch -e rtacser.timestamp"
      " -e frame.interface_description");
  EXPECT_EQ(times.errors, "");
  for (const std::string& line : times.lines) {
    const std::size_t tab = line.find('\t');
    EXPECT_EQ(line,
              line.substr(0, tab) + '\t' + line.substr(0, tab) + "\tvantrel card printer line");
  }
}

TEST_F(PrinterAnalyser, AcceptsTheFileAndMergesItWithATraceOfANetwork) {
  Record();
  const std::vector<std::string> info = home_.Run("capinfos line.pcapng | sed 's/  */ /g'").lines;
  const std::vector<std::string> told{
      "File type: Wireshark/... - pcapng",
      "File encapsulation: RTAC serial-line",
      "Number of packets: 28",
      std::string("Capture application: vantrel ") + VANTREL_VERSION,
      " Description = vantrel card printer line",
      " Speed = 9600"};
  EXPECT_THAT(info, testing::IsSupersetOf(told));
  log::WrittenCapture network;
  network.AddInterface(1, "a network");
  network.AddBare(0, "\xFF\xFF\xFF\xFF\xFF\xFF" + std::string(6, '\x01') + "\x88\xB5 and more");
  home_.Write("network.pcapng", network.Bytes());
  const std::string meanings = "tshark -Y cardprinter -T fields -e cardprinter.meaning -r ";
  const log::AnalyserRun merged = home_.Run(
      "mergecap -w merged.pcapng line.pcapng network.pcapng && " + meanings + "merged.pcapng");
  EXPECT_EQ(merged.lines, home_.Run(meanings + "line.pcapng").lines);
  const std::string ours = VANTREL_LOG_PROGRAM;
  const log::AnalyserRun shown = home_.Run(ours + " show --json merged.pcapng");
  EXPECT_EQ(shown.lines, home_.Run(ours + " show --json line.pcapng").lines);
  EXPECT_EQ(shown.lines.size(), 28U);
  EXPECT_EQ(shown.errors,
            "vantrel-log: merged.pcapng holds 1 interface of another link type, passed over with 1 "
            "packet on it.\n");
}

TEST_F(PrinterAnalyser, ReadsAPipeLive) {
  ASSERT_EQ(access("/usr/bin/dumpcap", X_OK), 0)
      << "The analyser reads a pipe by dumpcap, which this user may not run: join its group.";
  ASSERT_EQ(mkfifo(home_.Path("line.pcapng").c_str(), 0600), 0);
  const support::DeviceUser console(Serve({"--no-pacing", "--capture", Path()}));
  QProcess analyser;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("HOME", QString::fromStdString(home_.Path()));
  environment.remove("XDG_CONFIG_HOME");
  environment.remove("XDG_DATA_HOME");
  analyser.setProcessEnvironment(environment);
  analyser.start("tshark", {"-l", "-i", Path(), "-T", "fields", "-e", "cardprinter.meaning"});
  const auto next = [&analyser] {
    EXPECT_TRUE(support::WaitFor([&analyser] { return analyser.canReadLine(); }));
    return analyser.readLine().trimmed().toStdString();
  };
  console.Write("02 95 03 96");
  EXPECT_EQ(next(), "95h card transport count request");
  EXPECT_EQ(next(), "06h acknowledge");
  EXPECT_EQ(next(), "reply 95h: 20h normal status, \"0\"");
  console.Write("02 96 03 95");
  EXPECT_EQ(next(), "96h print count request");
  EXPECT_EQ(next(), "06h acknowledge");
  // A reader that goes ends nothing.
  analyser.terminate();
  EXPECT_TRUE(analyser.waitForFinished());
  console.Write("02 95 03 96");
  EXPECT_TRUE(console.ReadsTo("02 95 20 30 03 86", 5000));
  program_.terminate();
  EXPECT_EQ(End(), 0);
  EXPECT_EQ(program_.readAllStandardError(), "");
}

}  // namespace
}  // namespace vantrel::printer
