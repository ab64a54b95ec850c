#pragma once

namespace mrd::desktop {

/// The program from its command line to its end; the exit status.
int runDesktop(int argc, char** argv);

} // namespace mrd::desktop
