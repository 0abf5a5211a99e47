// SeriNo.txt beside the program: one value, whether purchases ask for the serial number of each piece. Only the shop changes it.
#pragma once

#include "platform/files.h"

namespace karvel {

struct SerialEntryFile {
  bool on = false;
  bool made = false;  // it was missing and has been written now, with "False"
  Status status;      // why it could not be read or made; it is off then
};

// On for True, Doğru and every number but 0, with or without the "#" around it that other programs write; ignoring case and blanks.
SerialEntryFile ReadOrMakeSerialEntryFile(Files& files);

}  // namespace karvel
