#include "platform/clerk_message.h"

namespace karvel {

std::string ClerkMessage(const Status& status) {
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
    case ErrorKind::Missing:
      return "Dosya veya klasör bulunamadı. Yerini ve diskin takılı olduğunu denetleyin.";
    case ErrorKind::Other:
      break;
  }
  return "Beklenmeyen bir hata oldu, işlem yapılmadı. Yeniden deneyin; yinelenirse destek isteyin.";
}

}  // namespace karvel
