// The words that the sample shop's names are made of. Nobody's real names: each is put together from lists.
#pragma once

#include <span>
#include <string_view>

namespace karvel::sample {

using Words = std::span<const std::string_view>;

// People.
Words FirstNames();  // men's and women's in turn
Words SecondNames();
Words Surnames();
// Shops: "Öz Çağlayan" "Gıda Ltd.Şti." "Kadıköy".
Words ShopNames();
Words ShopKinds();
Words WholesaleKinds();
Words Places();
// Addresses.
Words Streets();
Words Cities();
Words TaxOffices();

}  // namespace karvel::sample
