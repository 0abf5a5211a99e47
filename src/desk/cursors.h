// The data cursors of the desk, each under its name. They live from load to exit.
#pragma once

#include "store/cursor.h"
#include "store/stores.h"

namespace karvel {

struct Cursors {
  explicit Cursors(Stores& owner) : stores(owner) {}
  Stores& stores;
  Cursor CariData{stores, "CariData"};
  Cursor CariHarData{stores, "CariHarData"};
  Cursor OzelFiyat{stores, "OzelFiyat"};
  Cursor VadeData{stores, "VadeData"};
  Cursor StokData{stores, "StokData"};
  Cursor StokHarData{stores, "StokHarData"};
  Cursor HareketData{stores, "HareketData"};
  Cursor GunData{stores, "GunData"};
  Cursor GurupData{stores, "GurupData"};
  Cursor IndexPrimary{stores, "IndexPrimary"};
  Cursor IndexSecondary{stores, "IndexSecondary"};
  Cursor SeriNoData{stores, "SeriNoData"};
  Cursor Fatura{stores, "Fatura"};
  Cursor FatHareket{stores, "FatHareket"};
  Cursor DataMevcut{stores, "DataMevcut"};
  Cursor DataTmp{stores, "DataTmp"};
};

}  // namespace karvel
