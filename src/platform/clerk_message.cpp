#include "platform/clerk_message.h"

#include "platform/log.h"

namespace karvel {
namespace {

std::string SettingsMessage(const Status& status) {
  switch (status.Kind()) {
    case ErrorKind::Busy:
      return "Ayarlar şu anda başka bir terminalce kullanılıyor. Kayıt yapılmadı; biraz bekleyip yeniden deneyin.";
    case ErrorKind::DiskFull:
      return "Disk dolu, ayarlar yazılamadı. Kayıt yapılmadı; yer açıp yeniden deneyin.";
    case ErrorKind::NoRights:
      return "Ayarlara erişim izni yok. Kayıt yapılmadı; izni açtırıp yeniden deneyin.";
    case ErrorKind::Damaged:
      return "Ayarlar okunamıyor. Kayıt yapılmadı; programı kapatıp yeniden açın.";
    default:
      return "Ayarlar okunamadı veya yazılamadı. Kayıt yapılmadı; yeniden deneyin, yinelenirse destek isteyin.";
  }
}

// What stands on the main machine is no file or folder of this one. "" where the words for those do.
std::string ServerMessage(const Status& status, const std::string& then) {
  switch (status.Kind()) {
    case ErrorKind::NoRights:
      return "Ana makine bu kullanıcıya izin vermiyor" + then + " kullanıcıyı ve yetkisini denetletin.";
    case ErrorKind::DiskFull:
      return "Ana makinenin diski dolu" + then + " yer açtırıp yeniden deneyin.";
    case ErrorKind::Damaged:
      return "Ana makinede bu firmanın tabloları eksik veya değiştirilmiş" + then + " destek isteyin.";
    default:
      return {};
  }
}

}  // namespace

std::string ClerkMessage(const Status& status) {
  if (!status.Ok() && status.What() == Subject::Settings) return SettingsMessage(status);
  if (status.What() == Subject::Server)
    if (const std::string told = ServerMessage(status, ". Kayıt yapılmadı;"); !told.empty()) return told;
  if (status.Kind() == ErrorKind::Unknown && status.What() == Subject::Server) {
    return "Ana makine yanıt vermiyor: kaydın yapılıp yapılmadığı bilinmiyor. Yeniden denemeyin; bağlantı gelince alttaki satırda yazacak.";
  }
  switch (status.Kind()) {
    case ErrorKind::None:
      return "İşlem tamam.";
    case ErrorKind::BadText:
      return "Yazılan bilgi anlaşılamadı. Düzeltip yeniden deneyin.";
    case ErrorKind::NoRecord:
      return "Kayıt bulunamadı; silinmiş olabilir. Listeyi yenileyip yeniden deneyin.";
    case ErrorKind::NotOpen:
      return "Kayıt açık değil, işlem yapılmadı. Kaydı yeniden seçip deneyin.";
    case ErrorKind::Busy:
      return "Başka bir terminal kayıt yapıyor. Kayıt yapılmadı; biraz bekleyip yeniden deneyin.";
    case ErrorKind::DiskFull:
      return "Disk dolu. Kayıt yapılmadı; yer açıp yeniden deneyin.";
    case ErrorKind::NoRights:
      return "Bu klasöre yazma izni yok. Kayıt yapılmadı; izni açtırıp yeniden deneyin.";
    case ErrorKind::Damaged:
      return "Veri dosyası bozuk. Yeni kayıt yapmayın; yedekten geri yükleyin.";
    case ErrorKind::DiskFailed:
      return "Disk okunamadı veya yazılamadı. Kayıt yapılmadı; yeniden deneyin, yinelenirse diski denetletin.";
    case ErrorKind::Missing:
      return "Dosya veya klasör bulunamadı. Yerini ve diskin takılı olduğunu denetleyin.";
    case ErrorKind::Unknown:
      return "Disk yanıt vermiyor: kaydın yapılıp yapılmadığı bilinmiyor. Yeniden denemeyin; disk okununca alttaki satırda yazacak.";
    case ErrorKind::Unreachable:
      return "Ana makineye ulaşılamıyor. Kayıt yapılmadı; yazdıklarınız duruyor, bağlantı gelince yeniden deneyin.";
    case ErrorKind::Other:
      break;
  }
  return "Beklenmeyen bir hata oldu, işlem yapılmadı. Yeniden deneyin; yinelenirse destek isteyin.";
}

std::string OpeningMessage(const Status& status) {
  if (status.What() == Subject::Server)
    if (const std::string told = ServerMessage(status, ":"); !told.empty()) return told;
  switch (status.Kind()) {
    case ErrorKind::Busy:
      return "Dosyayı başka bir program kullanıyor. Onu kapatıp programı yeniden açın.";
    case ErrorKind::DiskFull:
      return "Disk dolu. Yer açıp programı yeniden açın.";
    case ErrorKind::NoRights:
      return "Buraya erişim izni yok. İzni açtırıp programı yeniden açın.";
    case ErrorKind::Damaged:
      return "Dosya bozuk veya bu programın dosyası değil. Üzerine yazılmadı; yedekten geri yükleyin.";
    case ErrorKind::DiskFailed:
      return "Disk okunamadı veya yazılamadı. Programı yeniden açın; yinelenirse diski denetletin.";
    case ErrorKind::Missing:
      return "Dosya veya klasör bulunamadı. Yerini ve diskin takılı olduğunu denetleyin.";
    case ErrorKind::Unreachable:
      return "Ana makineye ulaşılamıyor. Açık ve ağa bağlı olduğunu denetleyin; bağlantı gelince terminal kendiliğinden devam eder.";
    default:
      return "Beklenmeyen bir hata oldu. Programı yeniden açın; yinelenirse destek isteyin.";
  }
}

std::string ReadingMessage(const Status& status) {
  switch (status.Kind()) {
    case ErrorKind::Damaged:
      return "Veri dosyası bozuk, listeler eksik olabilir. Yeni kayıt yapmayın; yedekten geri yükleyin.";
    case ErrorKind::DiskFailed:
      return "Disk okunamadı, listeler eksik olabilir. Yeniden deneyin; yinelenirse diski denetletin.";
    case ErrorKind::NoRights:
      return "Veri dosyası okunamadı: erişim izni yok. İzni açtırıp yeniden deneyin.";
    case ErrorKind::Busy:
      return "Veri dosyası başka bir programda açık, okunamadı: yeniden deneyin";
    case ErrorKind::Unreachable:
      return "Ana makineye ulaşılamıyor, listeler eksik olabilir. Bağlantı gelince kendiliğinden okunur.";
    default:
      return "Veri dosyası okunamadı, listeler eksik olabilir. Yeniden deneyin; yinelenirse destek isteyin.";
  }
}

std::string WithPlace(const std::string& text, const Status& status) {
  if (status.Place().empty()) return text;
  const std::string log = LogPlace();
  return text + "\n\nYer: " + status.Place() + (log.empty() ? "" : "\nAyrıntılı kayıt: " + log);
}

}  // namespace karvel
