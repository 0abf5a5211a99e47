#include "robot/answers.h"

#include <fmt/format.h>

#include <cmath>

#include "app/desk_grid.h"
#include "desk/desk.h"

namespace karvel {
namespace {

// Whole numbers without a point, as one would write them.
Json JsonNumber(double number) {
  constexpr double kExact = 1e15;
  if (std::isfinite(number) && std::trunc(number) == number && std::fabs(number) < kExact) return static_cast<std::int64_t>(number);
  return number;
}

Json JsonValue(const Value& value) {
  if (const double* number = std::get_if<double>(&value)) return JsonNumber(*number);
  if (const bool* flag = std::get_if<bool>(&value)) return *flag;
  if (const DateTime* date = std::get_if<DateTime>(&value)) return date->ToIso();
  if (const std::string* text = std::get_if<std::string>(&value)) return *text;
  return nullptr;
}

Json JsonTexts(const QStringList& texts) {
  Json list = Json::array();
  for (const QString& text : texts) list.push_back(text.toStdString());
  return list;
}

}  // namespace

DeskGrid& GridOf(const Target& target) {
  auto* const grid = dynamic_cast<DeskGrid*>(target.widget);
  if (!grid) throw RequestError(fmt::format("{} is not a grid", target.element->Name()));
  return *grid;
}

Json DescribeElement(const Target& target) {
  const Element& element = *target.element;
  const bool isDate = element.Kind() == ElementKind::DatePicker;
  Json answer;
  // A date as a request sets it.
  answer["text"] = isDate ? element.Date().ToIso().substr(0, 10) : element.Text();
  answer["caption"] = element.Caption();
  answer["visible"] = element.Visible();
  answer["enabled"] = element.Enabled();
  answer["checked"] = element.Checked();
  answer["color"] = element.Color();
  answer["focus"] = element.HasFocus();
  if (target.widget) {
    const QPoint at = target.widget->mapTo(target.widget->window(), QPoint(0, 0));
    answer["left"] = at.x();
    answer["top"] = at.y();
    answer["width"] = target.widget->width();
    answer["height"] = target.widget->height();
  }
  if (element.Kind() == ElementKind::List || element.Kind() == ElementKind::Combo) answer["items"] = element.Items();
  return answer;
}

Json DescribeGrid(const Target& target, int limit) {
  DeskGrid& grid = GridOf(target);
  Json answer;
  answer["columns"] = JsonTexts(grid.VisibleHeadings());
  answer["rows"] = Json::array();
  const QList<QStringList> rows = grid.ShownRows(limit + 1);
  for (const QStringList& row : rows.first(std::min<qsizetype>(rows.size(), limit))) answer["rows"].push_back(JsonTexts(row));
  if (rows.size() > limit) answer["truncated"] = true;
  answer["current"] = grid.CurrentRowNumber();
  return answer;
}

Json DescribeState(const Desk& desk) {
  Json answer;
  for (const auto& [name, value] : desk.form.ByName()) {
    const std::size_t bracket = name.find('(');
    if (bracket == std::string::npos) {
      answer[name] = JsonValue(value);
    } else {
      // Entries come in their order.
      answer[name.substr(0, bracket)].push_back(JsonValue(value));
    }
  }
  answer["title"] = desk.Title();
  answer["dataDir"] = desk.form.DataDir;
  return answer;
}

}  // namespace karvel
