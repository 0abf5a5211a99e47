#include "exchange/exchange.h"

#include "desk/desk.h"
#include "exchange/backup.h"
#include "exchange/day_file_sending.h"
#include "exchange/ftp_transfer.h"
#include "exchange/grid_layout.h"
#include "exchange/network_menu.h"
#include "exchange/purge_at_start.h"

namespace karvel {

// One member a feature.
struct Exchange::Features {
  explicit Features(Desk& desk)
      : transfer(desk.Parts()),
        dayFiles(desk.Parts(), transfer, desk.Upkeep()),
        network(desk, transfer),
        backup(desk.Parts(), desk.Upkeep(), desk.Closing()),
        purge(desk.Parts(), desk.Upkeep(), desk.Opening(), backup),
        layouts(desk.Parts(), desk.Opening()) {}

  FtpTransfer transfer;
  DayFileSending dayFiles;  // looks at the lines before the purge does
  NetworkMenu network;
  Backup backup;
  PurgeAtStart purge;
  GridLayout layouts;
};

Exchange::Exchange(Desk& desk) : features_(std::make_unique<Features>(desk)) {}

Exchange::~Exchange() = default;

void Exchange::SendDayFile(const PrintedDay& day) {
  features_->dayFiles.SendDayFile(day);
}

}  // namespace karvel
