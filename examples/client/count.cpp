// SPDX-License-Identifier: MIT

// Asks a printer how many transports it has counted, and tells its answer: count DEVICE
#include "line.h"

#include <vantrel/link/frame.h>
#include <vantrel/link/reply.h>
#include <vantrel/link/status_text.h>

#include <exception>
#include <iostream>

int main(int argc, char** argv) try {
  using namespace vantrel::link;
  Line line(argc > 1 ? argv[1] : "/dev/ttyS0");
  const std::string reply = line.Exchange(ComposeFrame("95"));
  std::cout << ReplyMeaning(ReplyLabel("95"), reply, CodePage::kWestern) << '\n';
  return ReplyStatus(reply) == 0x20 ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << "count: " << error.what() << '\n';
  return 1;
}
