// The files inside a zip that lies in memory.
#pragma once

#include <zip.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace karvel {

class ZipInMemory {
 public:
  // The bytes must live as long as this object.
  explicit ZipInMemory(std::string_view bytes);
  [[nodiscard]] bool IsOpen() const { return zip_ != nullptr; }

  enum class Outcome { Read, Missing, Failed, Stopped };
  // Hands over a file of the zip piece by piece, until `take` answers false (Stopped). Names are matched ignoring case.
  Outcome Read(const std::string& name, const std::function<bool(std::string_view)>& take) const;

 private:
  struct Discard {
    void operator()(zip_t* zip) const { zip_discard(zip); }
  };
  std::unique_ptr<zip_t, Discard> zip_;
};

}  // namespace karvel
