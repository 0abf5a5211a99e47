#pragma once

#include "platform/barcode.h"

namespace karvel {

class ZintBarcodes : public Barcodes {
 public:
  [[nodiscard]] std::expected<Picture, Status> Code128(const std::string& text, int module, int height) const override;
};

}  // namespace karvel
