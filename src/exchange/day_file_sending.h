// With "Ftp Çalışma" checked, every printed slip or day whose lines haven't gone yet becomes a day file, and the transfer is begun. At the
// start, what a killed desk left of a day file is finished or swept.
#pragma once

#include "desk/parts.h"
#include "exchange/ftp_transfer.h"
#include "exchange/printed_day.h"
#include "platform/signal.h"

namespace karvel {

class DayFileSending {
 public:
  DayFileSending(const DeskParts& parts, FtpTransfer& transfer, Signal<>& upkeep);

  // The paper is out, and SlipNo is still its number, which ends here.
  void SendDayFile(const PrintedDay& day);

 private:
  void SendLeft();
  void PlaceLeft();
  void ShowLaid(const std::string& name);
  void TellRefusal(const std::string& name, const Status& why);

  const DeskParts& parts_;
  Screen& screen_;
  FormState& form_;
  const World& world_;
  FtpTransfer& transfer_;
  Connections connections_;
};

}  // namespace karvel
