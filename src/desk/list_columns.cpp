#include "desk/list_columns.h"

namespace karvel {

std::vector<GridColumn> CustomerColumns(const FormState& form) {
  return {
      {"Ünvan", "Unvan"}, {"", "", false}, {"Bakiye", "Bakiye", true, Align::Right, form.PriceFormat}, {"Hesap", "Hesap"}, {"", "", false}};
}

std::vector<GridColumn> StockStatusColumns(const FormState& form) {
  const std::string& quantity = form.QuantityFormat;
  return {{"Stok Adı", "StokAdi"},
          {"Giren", "GirenMik", true, Align::Right, quantity},
          {"Çıkan", "CikanMik", true, Align::Right, quantity},
          {"+Kalan", "KalanB", true, Align::Right, quantity},
          {"-Kalan", "KalanA", true, Align::Right, quantity}};
}

}  // namespace karvel
