// Asks a printer how many transports it has counted, and tells its answer: client DEVICE
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <vantrel/link/frame.h>
#include <vantrel/link/reply.h>
#include <vantrel/link/status_text.h>

#include <iostream>

int main(int argc, char** argv) {
  using namespace vantrel::link;
  const int line = open(argc > 1 ? argv[1] : "/dev/ttyS0", O_RDWR | O_NOCTTY);
  termios settings{};
  if (tcgetattr(line, &settings) != 0) return 1;
  cfmakeraw(&settings);
  cfsetspeed(&settings, B9600);
  tcsetattr(line, TCSANOW, &settings);
  const std::string frame = ComposeFrame("95");
  const Bytes bytes = BytesOf(frame);
  if (write(line, bytes.data(), bytes.size()) < 0) return 1;
  std::string received;
  unsigned char byte = 0;
  while (JudgeReply(received, frame) == Judgement::kWait && read(line, &byte, 1) == 1)
    received += HexOf(byte);
  if (JudgeReply(received, frame) != Judgement::kComplete) return 1;
  std::cout << ReplyMeaning(ReplyLabel("95"), received, CodePage::kWestern) << '\n';
  return ReplyStatus(received) == 0x20 ? 0 : 1;
}
