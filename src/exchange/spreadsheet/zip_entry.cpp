#include "exchange/spreadsheet/zip_entry.h"

#include <vector>

namespace karvel {

ZipInMemory::ZipInMemory(std::string_view bytes) {
  zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
  if (source == nullptr) return;
  zip_.reset(zip_open_from_source(source, ZIP_RDONLY, nullptr));
  if (!zip_) zip_source_free(source);
}

ZipInMemory::Outcome ZipInMemory::Read(const std::string& name, const std::function<bool(std::string_view)>& take) const {
  const zip_int64_t at = zip_name_locate(zip_.get(), name.c_str(), ZIP_FL_NOCASE);
  if (at < 0) return Outcome::Missing;
  const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(zip_.get(), static_cast<zip_uint64_t>(at), 0), zip_fclose);
  if (!file) return Outcome::Failed;
  constexpr std::size_t kPiece = 1U << 16U;
  std::vector<char> piece(kPiece);
  for (;;) {
    const zip_int64_t count = zip_fread(file.get(), piece.data(), piece.size());
    if (count < 0) return Outcome::Failed;
    if (count == 0) return Outcome::Read;
    if (!take({piece.data(), static_cast<std::size_t>(count)})) return Outcome::Stopped;
  }
}

}  // namespace karvel
