#pragma once
// Saving many files with one wait for the disk.
//
// For a group of files, in this order:
//
//   const std::size_t number = group.Add(target);   for each of them; then write to
//   group.Content(number)                           the new content,
//   group.BackUp(number, backup);                   and keep the old one
//   group.Flush();                                  once: all of that is on the disk
//   group.Commit(number);                           for each: the target has the new content
//
// and the same for the next group. The last thing is one more Flush(): it puts the new names of the
// last group on the disk. Until then a crash of the machine may bring back a file as it was before,
// whole.
//
// Each file is replaced as by SafeSave (safe_save.h): owner, mode and extended attributes stay, a
// symbolic link stays a link, and the file holds its old or its new content at every moment. One
// that can't be replaced by a rename is rewritten in place by Commit, which takes its own flushes.
//
// Each file of a group has two to three files open until it is committed or dropped: 200 at a time
// stay well below the usual limit.

#include <cstddef>
#include <functional>
#include <memory>

#include "platform/system/byte_file.h"

// Failures are RuntimeError with the file and the cause, and are of that file alone, but for those
// of Flush.
class GroupedSave {
 public:
  // onFolder: called with the folder before a scratch file is made in it; a kill leaves that there.
  explicit GroupedSave(std::function<void(const String& folder)> onFolder = {});
  GroupedSave(const GroupedSave&) = delete;
  GroupedSave& operator=(const GroupedSave&) = delete;
  // Drops what is not committed.
  ~GroupedSave();

  // A file that will get new content. Throws where it could not be written. Returns its number,
  // from 0 on, counted through all groups. A file that is new is readable for nobody who can't read
  // the file `model`, if one is named. One file stands in a group once, by whichever of its names.
  std::size_t Add(const String& target, const String& model = {});
  // Where the new content is to be written, once; close it before Flush.
  OutputFile Content(std::size_t number);
  // Keeps the old content, with its mode, times and extended attributes, under a new name. False
  // when something stands there already, whatever it is. Where the target will be replaced by a
  // rename the backup is the old file itself, under a second name until then: until Commit or Drop,
  // what another program writes into the target is in the backup too (and Commit refuses). After a
  // kill in between the two stay one file, which is as it was before.
  bool BackUp(std::size_t number, const String& backup);
  // Returns when all contents and backups are on the disk, and the names of what was committed
  // before. Throws when nobody can know: then nothing of the group may be committed.
  void Flush();
  // Puts the new content in place of the old one. Throws when the content could not be written, or
  // when another program has changed the target since Add; the target then stays as it is, and its
  // backup becomes a copy.
  void Commit(std::size_t number);
  // Leaves the target as it is. The backup becomes a copy.
  void Drop(std::size_t number);

  // Removes the scratch files in a folder that no running program uses.
  static void RemoveLeftovers(const String& folder);

 private:
  struct State;
  std::unique_ptr<State> state_;
};
