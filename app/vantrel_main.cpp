#include "app/console_program.h"

#include <cstdlib>

// The console. It has no options.
int main(int argc, char** argv) { return vantrel::RunConsole(argc, argv, vantrel::SystemDevice); }
