#include "store/key_spans.h"

#include <algorithm>
#include <string_view>
#include <variant>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kSigns = "*?#[";
// The plain letters that names begin with, then those whose keys begin with a plain letter's key.
constexpr std::string_view kPlain = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr const char* kMarked[] = {"ç", "ğ", "ı", "İ", "ö", "ş", "ü", "â", "î", "û"};
// The highest code point, which no real text holds: an engine may refuse what is no letter at all.
constexpr std::string_view kBehindAllKeys = "\U0010FFFF";

// The pattern that every row has to fit in this field; empty when there is none that spans help with.
std::string_view PatternOn(const dialect::Expr& condition, int position) {
  if (const auto* both = std::get_if<dialect::And>(&condition.node)) {
    const std::string_view left = PatternOn(*both->left, position);
    return left.empty() ? PatternOn(*both->right, position) : left;
  }
  const auto* like = std::get_if<dialect::Like>(&condition.node);
  if (like == nullptr) return {};
  const auto* field = std::get_if<dialect::Field>(&like->text->node);
  if (field == nullptr || field->position != position) return {};
  const std::string_view pattern = like->pattern;
  const std::size_t sign = pattern.find_first_of(kSigns);
  const bool helps = sign != std::string_view::npos && pattern[sign] == '?' && sign + 1 < pattern.size() &&
                     kSigns.find(pattern[sign + 1]) == std::string_view::npos;
  return helps ? pattern : std::string_view();
}

}  // namespace

std::vector<KeySpan> SpansOf(const RowQuery& query) {
  if (query.order.empty()) return {};
  const int position = query.order.front().position;
  if (query.table->columns[static_cast<std::size_t>(position)].type != ColumnType::Text) return {};
  std::string_view pattern;
  for (const dialect::ExprPtr& condition : query.where)
    if (condition && pattern.empty()) pattern = PatternOn(*condition, position);
  if (pattern.empty()) return {};

  const std::size_t any = pattern.find('?');
  const std::string_view head = pattern.substr(0, any);
  const std::string_view rest = pattern.substr(any + 1);
  const std::string_view letters = rest.substr(0, rest.find_first_of(kSigns));
  const auto withLetter = [&](std::string_view letter) {
    const std::string name = std::string(head).append(letter).append(letters);
    return KeySpan{FoldKey(name), FoldKeyPrefixEnd(name)};
  };
  std::vector<KeySpan> spans;
  for (const char& letter : kPlain) spans.push_back(withLetter({&letter, 1}));
  for (const char* const letter : kMarked) spans.push_back(withLetter(letter));
  // Signs and foreign letters stand before, between and behind these; few names begin with one.
  const std::string start = FoldKey(head);
  spans.push_back({start, start + kPlain.front()});
  spans.push_back({start + static_cast<char>('9' + 1), start + 'a'});
  spans.push_back({start + static_cast<char>('z' + 1), head.empty() ? std::string(kBehindAllKeys) : FoldKeyPrefixEnd(head)});
  std::ranges::sort(spans, {}, &KeySpan::from);
  return spans;
}

}  // namespace karvel
