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

void LayOutLists(Screen& screen, const FormState& form, Cursors& cursors) {
  const std::string& price = form.PriceFormat;
  const std::string& quantity = form.QuantityFormat;
  screen.CariGrid.SetColumns(CustomerColumns(form));
  screen.CariGrid.SetSource(&cursors.CariData);
  screen.StokGrid.SetColumns({{"Stok Kodu", "StokKod"},
                              {"Stok Adı", "StokAdi"},
                              {"Maliyet", "gFiyat", true, Align::Right, price},
                              {"1.Fiyat", "Fiyat", true, Align::Right, price},
                              {"2.Fiyat", "Fiyat2", true, Align::Right, price},
                              {"3.Fiyat", "Fiyat3", true, Align::Right, price},
                              {"Kalan", "KalanB", true, Align::Right, quantity},
                              {"Yeri", "Yeri"}});
  screen.StokGrid.SetSource(&cursors.StokData);
  screen.HareketGrid.SetColumns({{"Tarih", "Tarih"},
                                 {"Stok Kodu", "StokKod", false},
                                 {"Stok Adı", "StokAd"},
                                 {"Miktar", "Miktar", true, Align::Right, quantity},
                                 {"Fiyat", "Fiyat", true, Align::Right, price},
                                 {"Tutar", "Tutar", true, Align::Right, price},
                                 {"Tahsilat", "Tahsilat", true, Align::Right, price},
                                 {"Olay", "Durum"}});
  screen.HareketGrid.SetSource(&cursors.HareketData);
  screen.FatGrid.SetColumns({{"Stok Adı", "StokAd"},
                             {"Miktar", "Miktar", true, Align::Right, quantity},
                             {"Fiyat", "Fiyat", true, Align::Right, price},
                             {"Tutar", "Tutar", true, Align::Right, price},
                             {"Seç", "Sec", true, Align::Center}});
  screen.FatGrid.SetSource(&cursors.HareketData);
  // These two are shown in a sale alone.
  screen.StokGrid.SetVisible(false);
  screen.HareketGrid.SetVisible(false);
}

}  // namespace karvel
