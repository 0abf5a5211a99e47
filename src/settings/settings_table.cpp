#include "settings/settings_table.h"

#include <algorithm>

namespace karvel {
namespace {

using enum SettingApplication;
using S = Setting;

constexpr std::array<SettingEntry, kSettingCount> kTable = {{
    // clang-format off
    {S::SearchCaption,        Title, "Size", "Label1",    " Ürün",      "caption of Label1(1): search by name or \" Barkod\""},
    {S::Online,               Title, "Size", "Online",    "",           "address of the main machine; nonempty means network working"},
    {S::FtpUrl,               Title, "Size", "FtpUrl",    "",           "FTP server; nonempty means FTP working"},
    {S::FtpUser,              Title, "Size", "FtpUser",   "",           "FTP user"},
    {S::FtpPassword,          Title, "Size", "FtpPass",   "",           "FTP password"},
    {S::FtpFolder,            Title, "Size", "FtpKlasör", "",           "FTP folder"},
    {S::Company,              Title, "Size", "Firma",     "",           "company number under the share"},
    {S::CustomerGroup,        Title, "Size", "CGurup",    "",           "customer group shown"},
    {S::StockGroup,           Title, "Size", "SGurup",    "",           "stock group shown"},
    {S::PostOnScan,           Title, "Size", "SecimTamam", "",          "menu Seçim Tamam: a scan posts the line at once"},
    {S::FeedLines,            Title, "Size", "AltSatır",  "0",          "feed lines at the end of a slip"},
    {S::InvoiceMarks,         Title, "Size", "FatStr",    "0000000000", "ten digits, the check marks of MnPop(0) to MnPop(9)"},
    {S::InvoicePrinter,       Title, "Size", "Prnn",      "Yazıcı Yok", "invoice printer, caption of MnPop(10)"},
    {S::InvoicePaperSize,     Title, "Size", "Prns",      "",           "invoice paper size"},
    {S::InvoiceOrientation,   Title, "Size", "Prno",      "",           "invoice orientation"},
    {S::StatementPrinter,     Title, "Size", "Dökn",      "",           "statement and report printer"},
    {S::StatementPaperSize,   Title, "Size", "Döks",      "",           "statement paper size"},
    {S::StatementOrientation, Title, "Size", "Döko",      "",           "statement orientation"},
    {S::MinSalePercent,       Title, "Size", "Yuzdem",    "0",          "how far below the card a price may go, in percent"},
    {S::NameOnOwnLine,        Title, "Size", "AraVer",    "",           "menu Stok İsmi Ayrı Satır"},
    {S::DeletionOpen,         Title, "Size", "Silme",     "",           "menu Silme Açık"},
    {S::QuantityFormat,       Title, "Size", "mFormat",   "#,##0",      "format of quantities; start saves General Number for an empty one"},
    {S::PriceFormat,          Title, "Size", "fFormat",   "#,##0",      "format of money; start saves Standard for an empty one"},
    {S::InvoiceLines,         Title, "Size", "SatırSay",  "15",         "invoice lines a page"},
    {S::TaxMode,              Title, "Size", "Kdv",       "Hariç",      "Dahil or Hariç; caption of MnPop(13) behind \"Kdv \""},
    {S::StockFrameLeft,       Title, "Size", "StkFrameL", "",           "left of panel StkFrame"},
    {S::StockFrameTop,        Title, "Size", "StkFrameT", "",           "top of panel StkFrame"},
    {S::InvoiceNo,            Title, "Size", "FatNo",     "000000",     "last invoice number"},
    {S::UsePassword,          Title, "Size", "aSif",      "",           "password for card deletion and the minimum percent"},
    {S::DeletedLinesPassword, Title, "Size", "iSif",      "",           "password for the deleted-lines list"},

    {S::PurgeMonth,       Title, "AySil",       "AySil",       "", "menu 30 Gün Öncesini Sil"},
    {S::PriceFixed,       Title, "FiyatSabit",  "FiyatSabit",  "", "menu Fiyat Sabit"},
    {S::GroupSecondPrice, Title, "FiyatSabit",  "Fiyat2",      "", "menu Gurup 2.Fiyat"},
    {S::StockedSale,      Title, "Stoklu",      "Stoklu",      "", "menu Stoklu Satış: quantity limited by stock"},
    {S::A5Size,           Title, "A5",          "A5",          "", "menu A5 Size"},
    {S::EInvoice80mm,     Title, "Efatura80cm", "Efatura80cm", "", "menu E-Fatura 80 mm"},
    {S::TurnoverChoice,   Title, "CiroYaz",     "CiroYaz",     "", "index of the checked CiroYaz entry"},
    {S::ScannerOn,        Title, "Karvel",      "BarkodOku",   "", "menu Barkod Oku: scanner on"},
    {S::ScannerPort,      Title, "Karvel",      "BarkodPort",  "", "serial port of the scanner: /dev/ttyUSB0, COM3; empty: the first USB one found"},
    {S::ScannerSpeed,     Title, "Karvel",      "BarkodHız",   "9600", "speed of that port, bits a second"},
    {S::PrintResolution,  Title, "Karvel",      "YazıcıNokta", "203", "dots an inch in which documents are laid out"},
    {S::DeskFontName,     Title, "Font",        "FontName",    "", "desk font"},
    {S::DeskFontSize,     Title, "Font",        "FontSize",    "", "desk font, points"},
    {S::DeskFontBold,     Title, "Font",        "FontBold",    "", "desk font, bold"},
    {S::PrintFontName,    Title, "Font",        "YazFontName", "", "print font"},
    {S::PrintFontSize,    Title, "Font",        "YazFontSize", "", "print font, points"},
    {S::GridFontName,     Title, "EkrFont",     "FontName",    "", "grid font"},
    {S::GridFontSize,     Title, "EkrFont",     "FontSize",    "", "grid font, points"},
    {S::WindowFixed,      Title, "FrmSize",     "Sabit",       "0", "window fixed"},
    {S::LogoMark,         Title, "Logo",        "Logo",        "", "check of a Logom entry; the entry's index stands behind the key"},
    {S::LogoPath,         Title, "Logo",        "Logom",       "", "path of the chosen picture"},
    {S::BackupDrive,      Title, "Yedek",       "Yedek",       "", "backup drive"},
    {S::KeyboardCaps,     Title, "SizeKlv",     "Caps",        "0", "on-screen keyboard caps"},
    {S::ScreenKeyboard,   Title, "SizeKlv",     "Klavye",      "0", "index of the checked Klv entry: when a tap opens the on-screen keyboard"},
    {S::FtpCertificate,   Title, "Karvel",      "FtpSertifika", "", "file with the certificates that FTP servers are checked by; empty: the system's"},

    {S::TerminalNumber, Terminal,      "Trm",          "No",    "", "terminal number as a plain number, written on start"},
    {S::DataPlace,      Karvel,        "KarvelProper", "Yer",   "", "data folder, written when the company file is first made"},
    {S::TransferShare,  Karvel,        "Aktar",        "ip",    "\\\\127.0.0.1\\MuhasebeData\\01", "transfer share, read on start"},
    {S::SlipNo,         VelmoraKarvel, "Size",         "DökNo", "000000", "last slip number, common to all terminals of the machine"},
    // clang-format on
}};

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (static_cast<std::size_t>(kTable[i].setting) != i) return false;
  }
  return true;
}
static_assert(InOrder(), "the table stands in the order of the enumeration");

}  // namespace

constinit const std::array<SettingEntry, kSettingCount> kSettings = kTable;

const SettingEntry& EntryOf(Setting setting) {
  return kSettings[static_cast<std::size_t>(setting)];
}

bool IsSecret(std::string_view key) {
  return std::ranges::any_of(kSecretSettings, [&](Setting setting) { return EntryOf(setting).key == key; });
}

std::string_view FixedApplication(SettingApplication application) {
  switch (application) {
    case Title:
      return "";
    case Terminal:
      return "Terminal";
    case Karvel:
      return "Karvel";
    case VelmoraKarvel:
      return "Velmora Karvel";
  }
  return "";
}

}  // namespace karvel
