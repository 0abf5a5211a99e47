// The desk's options in one table: where each is kept, what it is when nobody has set it, and what it means.
// Options kept under the title belong to one terminal; the fixed ones are common to all terminals of the machine.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace karvel {

// In the order of the table.
enum class Setting {
  SearchCaption,
  Online,
  FtpUrl,
  FtpUser,
  FtpPassword,
  FtpFolder,
  Company,
  CustomerGroup,
  StockGroup,
  PostOnScan,
  FeedLines,
  InvoiceMarks,
  InvoicePrinter,
  InvoicePaperSize,
  InvoiceOrientation,
  StatementPrinter,
  StatementPaperSize,
  StatementOrientation,
  MinSalePercent,
  NameOnOwnLine,
  DeletionOpen,
  QuantityFormat,
  PriceFormat,
  InvoiceLines,
  TaxMode,
  StockFrameLeft,
  StockFrameTop,
  InvoiceNo,
  UsePassword,
  DeletedLinesPassword,
  PurgeMonth,
  PriceFixed,
  GroupSecondPrice,
  StockedSale,
  A5Size,
  EInvoice80mm,
  TurnoverChoice,
  ScannerOn,
  ScannerPort,
  ScannerSpeed,
  PrintResolution,
  DeskFontName,
  DeskFontSize,
  DeskFontBold,
  PrintFontName,
  PrintFontSize,
  GridFontName,
  GridFontSize,
  WindowFixed,
  LogoMark,
  LogoPath,
  BackupDrive,
  KeyboardCaps,
  ScreenKeyboard,
  FtpCertificate,
  TerminalNumber,
  DataPlace,
  TransferShare,
  SlipNo,
};

// Where in the settings store an option stands: under this terminal's title, or under a name that all terminals of the machine share.
enum class SettingApplication { Title, Terminal, Karvel, VelmoraKarvel };

struct SettingEntry {
  Setting setting;
  SettingApplication application;
  std::string_view section;
  std::string_view key;
  std::string_view preset;
  std::string_view meaning;
};

inline constexpr std::size_t kSettingCount = static_cast<std::size_t>(Setting::SlipNo) + 1;
extern const std::array<SettingEntry, kSettingCount> kSettings;

// Those that no backup and no log holds.
inline constexpr std::array kSecretSettings{Setting::FtpPassword, Setting::UsePassword, Setting::DeletedLinesPassword};
// Whether a key of the settings store is one of theirs.
bool IsSecret(std::string_view key);

const SettingEntry& EntryOf(Setting setting);
// The name of a fixed application; "" for the title's own.
std::string_view FixedApplication(SettingApplication application);

}  // namespace karvel
