// FatSatir.Dat: where each item of an invoice stands on the shop's pre-printed paper. The desk only reads it; whoever designs the paper
// puts it into the data folder.
//
// A text file of numbers with commas between them: a line of four that mean nothing here, then 47 lines, one a box, with its top and its
// left in pixels of a screen on which a pixel is 15 twips.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace karvel {

// Both in twips, from the upper left of the printable area.
struct InvoiceBox {
  double top = 0, left = 0;
};

// The boxes, by what they place.
namespace invoice_box {
inline constexpr std::size_t kDate = 0, kTitle = 1, kAddress = 2, kAddress2 = 3, kTaxOffice = 4, kTaxNumber = 5, kSum = 6, kTax = 10,
                             kTotal = 11, kName = 12, kQuantity = 13, kPrice = 14, kAmount = 15, kWords = 16, kLabels = 17, kBody = 24,
                             kTime = 25, kBalance = 31, kUnit = 38, kRate = 42;
}  // namespace invoice_box

struct InvoiceLayout {
  static constexpr std::size_t kBoxes = 47;
  // All boxes are as wide as the platform makes a text box that nobody has sized.
  static constexpr double kBoxWidth = 1215;

  std::array<InvoiceBox, kBoxes> boxes{};
};

// Nothing where a number is missing or is none.
std::optional<InvoiceLayout> ReadInvoiceLayout(const std::string& bytes);

}  // namespace karvel
