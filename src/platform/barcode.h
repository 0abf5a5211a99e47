#pragma once

#include <expected>
#include <string>

#include "platform/printer.h"
#include "platform/status.h"

namespace karvel {

// Draws the barcodes of the documents.
class Barcodes {
 public:
  virtual ~Barcodes() = default;
  // A Code 128 with its quiet zones. `module` is the width of the narrowest bar and `height` that of the bars, in dots, above 0.
  [[nodiscard]] virtual std::expected<Picture, Status> Code128(const std::string& text, int module, int height) const = 0;
};

}  // namespace karvel
