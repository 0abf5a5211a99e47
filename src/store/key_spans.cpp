#include "store/key_spans.h"

#include <algorithm>
#include <string_view>
#include <variant>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kSigns = "*?#[";
// The plain letters that names begin with, then those whose keys begin with a plain letter's key; those of i are told below.
constexpr std::string_view kPlain = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr const char* kMarked[] = {"ç", "ğ", "ö", "ş", "ü", "â", "û"};
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

// The letters that a pattern's "?" stands for where a clerk typed an i, in the order of their keys: these begin a stretch of the order of
// their own, with no other letter between.
constexpr const char* kLettersOfI[] = {"ı", "i", "î", "İ"};
constexpr char kBehindI = 'j';

std::string_view LettersIn(std::string_view pattern) {
  return pattern.substr(0, pattern.find_first_of(kSigns));
}

KeySpan SpanUnder(const std::string& beginning) {
  return {FoldKey(beginning), FoldKeyPrefixEnd(beginning)};
}

// All names that begin so and go on as the pattern does. Where that is one more open letter and then a told one ("?brah?m k*"), an i there
// narrows them further, lest a frequent first name is read from end to end for its few last names.
void AddSpansUnder(const std::string& beginning, std::string_view pattern, std::vector<KeySpan>& spans) {
  const KeySpan all = SpanUnder(beginning);
  const std::string_view letters = pattern.starts_with('?') ? LettersIn(pattern.substr(1)) : std::string_view();
  if (letters.empty()) return spans.push_back(all);
  spans.push_back({all.from, FoldKey(beginning + kLettersOfI[0])});
  for (const char* const letter : kLettersOfI) spans.push_back(SpanUnder((beginning + letter).append(letters)));
  spans.push_back({all.from + kBehindI, all.end});
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
  const std::string_view letters = LettersIn(rest);
  const auto withLetter = [&](std::string_view letter) { return std::string(head).append(letter).append(letters); };
  std::vector<KeySpan> spans;
  for (const char& letter : kPlain)
    if (letter != 'i') spans.push_back(SpanUnder(withLetter({&letter, 1})));
  for (const char* const letter : kMarked) spans.push_back(SpanUnder(withLetter(letter)));
  // Where it was an i that the clerk typed, so are the others.
  for (const char* const letter : kLettersOfI) AddSpansUnder(withLetter(letter), rest.substr(letters.size()), spans);
  // Signs and foreign letters stand before, between and behind these; few names begin with one.
  const std::string start = FoldKey(head);
  spans.push_back({start, start + kPlain.front()});
  spans.push_back({start + static_cast<char>('9' + 1), start + 'a'});
  spans.push_back({start + static_cast<char>('z' + 1), head.empty() ? std::string(kBehindAllKeys) : FoldKeyPrefixEnd(head)});
  std::ranges::sort(spans, {}, &KeySpan::from);
  return spans;
}

}  // namespace karvel
