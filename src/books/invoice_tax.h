// The tax of an invoice, worked out line by line and summed by rate.
#pragma once

#include <array>
#include <cstddef>

namespace karvel {

// Whether the prices of the lines hold the tax already ("Kdv Dahil") or it comes on top of them ("Kdv Hariç").
enum class TaxMode { Included, Added };

// The tax in an amount, or on it, to the kuruş. The rate in percent.
double TaxOf(double amount, double rate, TaxMode mode);

// KdvTablo: up to six rates, in the order in which the lines bring them, with the tax of each. A rate of 0 brings no tax and takes no
// place.
class TaxTable {
 public:
  static constexpr std::size_t kRates = 6;
  struct Entry {
    double rate = 0, tax = 0;
  };

  // Adds the tax of a line. False, and nothing is added, for a seventh rate.
  bool Add(double rate, double tax);
  // All six places; those behind the last rate hold 0.
  [[nodiscard]] const std::array<Entry, kRates>& Entries() const { return entries_; }
  [[nodiscard]] double Sum() const;

 private:
  std::array<Entry, kRates> entries_{};
};

}  // namespace karvel
