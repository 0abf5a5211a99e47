// The form-level values that all features share: plain data under their names.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desk/muting.h"
#include "store/value.h"

namespace karvel {

class Cursor;
class Element;

struct FormState {
  Muting RepositionGuard;              // which followers of the cursors keep still
  std::string CurrentCustomerCode;     // CariKod of the sale in front
  std::array<double, 4> PriceSlots{};  // 1.Fiyat, 2.Fiyat, 3.Fiyat, Özel
  std::string LastStokSearch;          // last name searched for in Text1(1)
  std::string CriteriaText;            // scratch for date criteria, shared by all
  std::string PriceFormat = "#,##0";   // until the first activation gives it a default
  std::string QuantityFormat = "#,##0";
  float MinSalePercent = 0;
  std::string TerminalNo;     // two digits
  std::string CurrentLineId;  // DigerId of the line posted last
  std::string EditLineId;     // DigerId of the line in correction
  // Shows what the last posting wrote, once it is known that it stands (desk/unknown_outcome.h); empty for none in doubt.
  std::function<void()> WhenBooked;
  // What the quiet line told last of an action whose outcome had been unknown.
  std::string ToldOutcome;
  std::string ScannedSerial;
  std::string SlipNo;  // six digits, empty between slips
  std::array<std::string, 6> CompanyLines;
  std::string DökYazıcı;  // printer of statements and reports
  bool SerialEntryOn = false;
  std::string CustomerGroup, StockGroup;
  Cursor* ActiveCursor = nullptr;  // CariData or StokData, the list in front
  bool KeyboardOpen = false, PadOpen = false;
  Element* PadField = nullptr;  // the field that the pad was opened on; null while it is not open
  // The field in use: its index in Text1, Text2, CariNew or StokNew; 99 for Text6(0) and 100 plus the index for the others of Text6.
  float ActiveFieldCode = 0;
  std::string DataDir = "C:\\KarvelData\\";  // a share's has no "\" at its end
  std::string FtpKlasör;                     // folder of the FTP server, with "/" at its end
  float InetDurum = 0;                       // the last state of a transfer; 12: done
  bool Closing = false;                      // the window is closing: waits end
  bool BackupRuns = false;                   // nothing else may begin, and the window stays
  bool CloseWaits = false;                   // it was asked to go meanwhile
  bool Sabit = false;                        // the window is fixed

  // Every value by its name, for support: numbers, texts and booleans; PriceSlots and CompanyLines entry by entry, "PriceSlots(0)".
  [[nodiscard]] std::vector<std::pair<std::string, Value>> ByName() const;
};

}  // namespace karvel
