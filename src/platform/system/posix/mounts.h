#pragma once
// The mounted file systems.

#include <string>
#include <string_view>
#include <vector>

// The system's table of mounts; empty where it can't be read.
std::string SystemMounts();

// The mount points in such a table (a line each: device, mount point, type, options; blanks and the
// like as octal codes) that a user works on: media, and file systems of other machines.
std::vector<std::string> UserMounts(std::string_view table);
