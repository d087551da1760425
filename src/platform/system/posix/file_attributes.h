#pragma once
// What a file has besides its content.

struct stat;

// Gives the file behind `to` the owner, the group and the extended attributes (access lists among
// them) of the one behind `from`, whose status is given. False when some of them can't be kept.
bool CarryOwnerAndAttributes(int from, const struct stat& status, int to);
