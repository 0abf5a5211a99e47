// An amount of money in Turkish words, as the law wants it on an invoice. The words stand without blanks between them, so that nothing can
// be written in.
#pragma once

#include <expected>
#include <string>

#include "platform/status.h"

namespace karvel {

// Of an amount as the desk shows it ("1.250,75"): "Binikiyüzelli TL. Yetmişbeş Kr.". Whole liras keep the blank behind "TL.", kuruş alone
// stand without liras, and nothing is "Sıfır TL. ". What is no digit counts as 0, a minus sign too; of the kuruş two digits are spelled.
// BadText for more than nine places before the comma.
std::expected<std::string, Status> YazıylaTutar(const std::string& amount);

}  // namespace karvel
