#include "desktop/desktop_program.h"

int main(int argc, char** argv) { return mrd::desktop::runDesktop(argc, argv); }
