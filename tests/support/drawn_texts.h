// A drawing read back: its texts in order, and where one of them stands.
#pragma once

#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "documents/drawing.h"

namespace karvel {

inline std::vector<DrawnText> TextsOf(const Drawing& drawing) {
  std::vector<DrawnText> texts;
  for (const DrawingStep& step : drawing.steps)
    if (const auto* const text = std::get_if<DrawnText>(&step)) texts.push_back(*text);
  return texts;
}

inline std::vector<std::string> WordsOf(const Drawing& drawing) {
  std::vector<std::string> words;
  for (const DrawnText& text : TextsOf(drawing)) words.push_back(text.text);
  return words;
}

// The texts of the drawing from this one on.
inline std::vector<std::string> WordsFrom(const Drawing& drawing, const std::string& first) {
  std::vector<std::string> words;
  for (const DrawnText& text : TextsOf(drawing))
    if (!words.empty() || text.text == first) words.push_back(text.text);
  return words;
}

// The first of this text.
inline DrawnText TextIn(const Drawing& drawing, const std::string& text) {
  for (const DrawnText& drawn : TextsOf(drawing))
    if (drawn.text == text) return drawn;
  throw std::out_of_range("nothing drawn reads " + text);
}

inline bool Draws(const Drawing& drawing, const std::string& text) {
  for (const DrawnText& drawn : TextsOf(drawing))
    if (drawn.text == text) return true;
  return false;
}

inline std::vector<DrawnLine> RulesOf(const Drawing& drawing) {
  std::vector<DrawnLine> rules;
  for (const DrawingStep& step : drawing.steps)
    if (const auto* const rule = std::get_if<DrawnLine>(&step)) rules.push_back(*rule);
  return rules;
}

inline std::vector<DrawnPicture> PicturesOf(const Drawing& drawing) {
  std::vector<DrawnPicture> pictures;
  for (const DrawingStep& step : drawing.steps)
    if (const auto* const picture = std::get_if<DrawnPicture>(&step)) pictures.push_back(*picture);
  return pictures;
}

inline double EndOf(const DrawnText& text) {
  return text.x + text.width;
}

}  // namespace karvel
