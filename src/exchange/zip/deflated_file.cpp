#include "exchange/zip/deflated_file.h"

#include <fcntl.h>
#include <libdeflate.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/system_error.h"

namespace karvel {
namespace {

// The quickest: a backup is waited for.
constexpr int kLevel = 1;

// The bytes of an open file for as long as this lives.
class MappedFile {
 public:
  MappedFile(int file, std::size_t size) : size_(size) {
    if (size > 0) bytes_ = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  }
  ~MappedFile() {
    if (IsThere() && size_ > 0) munmap(bytes_, size_);
  }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  [[nodiscard]] bool IsThere() const { return bytes_ != MAP_FAILED; }
  [[nodiscard]] const void* Bytes() const { return size_ > 0 ? bytes_ : ""; }

 private:
  void* bytes_ = nullptr;
  const std::size_t size_;
};

struct EndCompressor {
  void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

Status NoMemory(const std::string& path) {
  return Status(ErrorKind::Other, path + ": no memory to pack it").At(path);
}

Status DeflateOpen(int file, const std::string& path, DeflatedFile& deflated) {
  struct stat info{};
  if (fstat(file, &info) != 0) return StatusOfSystemError(errno, path);
  const auto size = static_cast<std::size_t>(info.st_size);
  const MappedFile content(file, size);
  if (!content.IsThere()) return StatusOfSystemError(errno, path);
  const std::unique_ptr<libdeflate_compressor, EndCompressor> compressor(libdeflate_alloc_compressor(kLevel));
  if (!compressor) return NoMemory(path);
  const std::size_t most = libdeflate_deflate_compress_bound(compressor.get(), size);
  // Memory that is never touched costs nothing.
  deflated.bytes.reset(static_cast<std::byte*>(std::malloc(most)));
  if (!deflated.bytes) return NoMemory(path);
  deflated.count = libdeflate_deflate_compress(compressor.get(), content.Bytes(), size, deflated.bytes.get(), most);
  if (deflated.count == 0) return NoMemory(path);
  deflated.size = size;
  deflated.sum = libdeflate_crc32(0, content.Bytes(), size);
  deflated.changed = info.st_mtime;
  return {};
}

}  // namespace

Status Deflate(const std::string& path, DeflatedFile& deflated) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return StatusOfSystemError(errno, path);
  Status done = DeflateOpen(file, path, deflated);
  close(file);
  return done;
}

}  // namespace karvel
