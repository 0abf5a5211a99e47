// One backup of the shop: a zip file "hhmmData.ZIP" in the day's folder under "KarvelYedek" of a drive.
//
//   Cari.mdb … DataStok.mdb    the stores, all as they were at one moment
//   CariGrid.Dat …             whatever else lies in the data folder
//   Ayarlar/settings.ini       the settings of all terminals, without passwords
//   Ayarlar/Firmam.txt, …      what the shop has written beside the program
//
// The stores are copied beside the settings of this machine first, for other terminals go on posting, and packed from there. A backup of
// the same minute is replaced when the new one is whole, and not before.
#pragma once

#include <functional>
#include <string>

#include "desk/world.h"
#include "platform/status.h"
#include "text/date_time.h"

namespace karvel {

struct BackupOrder {
  std::string drive;       // "C:"
  std::string dataFolder;  // of the desk
  std::string terminal;    // its number: no two backups of one terminal are made at once
  DateTime now;
};

// Where all backups on a drive lie, in a folder for each day, in the desk's form.
std::string BackupsOn(const std::string& drive);
// Where it will stand, in the desk's form.
std::string BackupPath(const BackupOrder& order);
// `progress` hears what is done in hundredths, some dozens of times a second, and may let events run, but nothing that posts at this desk.
// DiskFull before anything is written where the drives have too little room.
Status MakeBackup(const World& world, const BackupOrder& order, const std::function<void(int percent)>& progress);
// What a backup of this terminal that was killed has left on this machine goes.
void SweepBackup(Files& files, const std::string& terminal);

}  // namespace karvel
