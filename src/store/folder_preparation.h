// What is done to a data folder before its files are opened as stores.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel {

class FolderPreparation {
 public:
  virtual ~FolderPreparation() = default;
  [[nodiscard]] virtual bool IsNeeded(const std::string& folder) const = 0;
  // Called while no other terminal writes. A failure keeps the folder closed.
  virtual Status Prepare(const std::string& folder) = 0;
};

}  // namespace karvel
