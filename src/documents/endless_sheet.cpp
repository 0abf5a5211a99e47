#include "documents/endless_sheet.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace karvel {

EndlessSheet::EndlessSheet(const Measures& measures, PrintFont font, ScaleMode scale)
    : measures_(measures), font_(std::move(font)), scale_(scale) {}

void EndlessSheet::Put(double x, double y, const std::string& text) {
  if (!text.empty()) texts_.push_back({text, x, y, TextWidth(text), font_});
}

std::map<double, double> EndlessSheet::Shifted() const {
  std::map<double, double> places;
  for (const DrawnText& text : texts_) places[text.y] = text.y;
  const double page = measures_.ScaleHeight(), line = LineHeight();
  double shift = 0;
  for (auto& [put, place] : places) {
    // What is put above the paper stands at its edge, and moves nothing else.
    place = std::max(0.0, put + shift);
    const double top = std::floor(place / page) * page;
    if (place <= top || place + line <= top + page) continue;
    shift += top + page - place;
    place = top + page;
  }
  return places;
}

Drawing EndlessSheet::Cut() const {
  const std::map<double, double> places = Shifted();
  const double page = measures_.ScaleHeight();
  std::vector<std::pair<int, DrawnText>> placed;
  for (DrawnText text : texts_) {
    const double place = places.at(text.y);
    const int number = static_cast<int>(std::floor(place / page));
    text.y = place - number * page;
    placed.emplace_back(number, std::move(text));
  }
  std::ranges::stable_sort(placed, {}, &std::pair<int, DrawnText>::first);
  Drawing drawing;
  drawing.scale = scale_;
  int reached = 0;
  for (auto& [number, text] : placed) {
    for (; reached < number; ++reached) drawing.steps.emplace_back(NextPage{});
    drawing.steps.emplace_back(std::move(text));
  }
  return drawing;
}

}  // namespace karvel
