#include "view/Program.h"

int main(int argc, char** argv) { return pd::RunProgram(argc, argv); }
