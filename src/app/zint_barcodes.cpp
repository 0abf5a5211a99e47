#include "app/zint_barcodes.h"

#include <zint.h>

#include <cstddef>
#include <memory>

namespace karvel {
namespace {

constexpr int kQuietZone = 10;  // modules on either side

struct DeleteSymbol {
  void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};

bool IsBar(const zint_symbol& symbol, int module) {
  return (symbol.encoded_data[0][module / 8] >> (module % 8) & 1) != 0;
}

}  // namespace

std::expected<Picture, Status> ZintBarcodes::Code128(const std::string& text, int module, int height) const {
  const std::unique_ptr<zint_symbol, DeleteSymbol> symbol(ZBarcode_Create());
  if (!symbol) return std::unexpected(Status(ErrorKind::Other, "no memory for a barcode"));
  symbol->symbology = BARCODE_CODE128;
  const int error = ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
  if (error >= ZINT_ERROR) return std::unexpected(Status(ErrorKind::BadText, text + ": " + symbol->errtxt));
  const int width = (symbol->width + 2 * kQuietZone) * module;
  Picture picture{width, height, std::vector<bool>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
  for (int y = 0; y < height; ++y)
    for (int x = kQuietZone * module; x < width - kQuietZone * module; ++x)
      picture.dots[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] =
          IsBar(*symbol, x / module - kQuietZone);
  return picture;
}

}  // namespace karvel
