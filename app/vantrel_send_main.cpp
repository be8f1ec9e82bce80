// SPDX-License-Identifier: MIT

#include "send/picture_loader.h"
#include "send/program.h"

int main(int argc, char** argv) {
  return vantrel::send::Main(argc, argv, vantrel::send::LoadPicture);
}
