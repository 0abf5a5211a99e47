// Archives by libzip. The files are deflated before, side by side and by a faster library; libzip makes the archive of them, and its own
// reading compares what came out with what went in.
#pragma once

#include "platform/archive.h"

namespace karvel {

class ZipArchives final : public Archives {
 public:
  Status Pack(const std::string& archive, const std::vector<Item>& items, const Progress& progress) override;
  Status Unpack(const std::string& archive, const std::string& folder, std::vector<std::string>& names) override;
};

}  // namespace karvel
