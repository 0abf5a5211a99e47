// What a backup brings beside the data, in its folder "Ayarlar": the settings of all terminals, and what the shop has written beside the
// program (Firmam.txt, SeriNo.txt). It goes to where the desk reads it, and out of the folder with the data; what can't go stays there.
//
// What stays true: a file that is there and tells otherwise is never written over unasked, and then kept beside under another name.
// A backup holds no passwords, so those of settings that give way go on.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "text/date_time.h"

namespace karvel {

struct SettingsPlace {
  std::string home;  // whose desk reads the settings; this machine's path
  bool replace = false;
  // Whether the files beside the program may give way too: another home's backup is no reason to change the name of this shop.
  bool replaceBesideProgram = false;
  DateTime now;
};

struct SettingsPutBack {
  std::vector<std::string> put;     // where each lies now
  std::vector<std::string> keptAs;  // what was there before
  std::vector<std::string> left;    // where each stays, since something else is in its place
  std::vector<std::string> wanted;  // and where the desk would read it
  Status status;                    // the first failure; what it hit is among those left
};

// `brought` is the folder on this machine into which a backup's settings were unpacked; it goes when nothing is left in it.
SettingsPutBack PutSettingsBack(Files& files, const std::string& brought, const SettingsPlace& place);

}  // namespace karvel
