#pragma once

namespace Orvane {

// Starts the program: the command-line check, or the player.
int Run_Application(int argc, char** argv);

} // namespace Orvane
