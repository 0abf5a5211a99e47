// A layout of invoice paper for tests: boxes far enough apart that nothing collides, in pixels.
#pragma once

#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

#include "documents/invoice_layout.h"

namespace karvel {

struct TestLayout {
  std::vector<std::pair<int, int>> boxes = std::vector<std::pair<int, int>>(InvoiceLayout::kBoxes);  // top, left

  TestLayout() {
    using namespace invoice_box;
    boxes[kDate] = {20, 500};
    boxes[kTime] = {40, 500};
    boxes[kTitle] = {60, 30};
    boxes[kAddress] = {80, 30};
    boxes[kAddress2] = {100, 30};
    boxes[kTaxOffice] = {120, 30};
    boxes[kTaxNumber] = {120, 400};
    boxes[kBody] = {200, 0};
    boxes[kName] = {200, 30};
    boxes[kRate] = {200, 240};
    boxes[kUnit] = {200, 330};
    boxes[kQuantity] = {200, 380};
    boxes[kPrice] = {200, 480};
    boxes[kAmount] = {400, 580};
    boxes[kSum] = {420, 580};
    boxes[kTax] = {440, 580};
    boxes[kTotal] = {520, 580};
    boxes[kLabels] = {400, 560};
    boxes[kBalance] = {560, 30};
    boxes[kWords] = {580, 30};
  }
  // As the file has it.
  [[nodiscard]] std::string Bytes() const {
    std::string bytes = "1,2,3,4\r\n";
    for (const auto& [top, left] : boxes) bytes += fmt::format("{},{}\r\n", top, left);
    return bytes;
  }
};

}  // namespace karvel
