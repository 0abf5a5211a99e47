#include "tests/support/access_file.h"

#include <cmath>
#include <cstring>
#include <numeric>

namespace karvel::testing {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kRowsAt = 14;  // of a page with rows: where the rows' places begin
constexpr std::uint16_t kDeleted = 0xC000, kPointer = 0x4000, kMoved = 0x8000;

template <typename Number>
void Put(std::string& bytes, std::size_t at, Number number) {
  std::memcpy(bytes.data() + at, &number, sizeof number);
}

template <typename Number>
std::string Bytes(Number number) {
  std::string bytes(sizeof number, '\0');
  Put(bytes, 0, number);
  return bytes;
}

// Two bytes a letter, the low one first. For letters of up to three bytes in UTF-8.
std::string Wide(const std::string& utf8) {
  std::string wide;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
    unsigned int code = byte(i);
    std::size_t size = 1;
    if (code >= 0xE0) {
      code = ((code & 0x0FU) << 12U) | ((byte(i + 1) & 0x3FU) << 6U) | (byte(i + 2) & 0x3FU);
      size = 3;
    } else if (code >= 0xC0) {
      code = ((code & 0x1FU) << 6U) | (byte(i + 1) & 0x3FU);
      size = 2;
    }
    wide += Bytes(static_cast<std::uint16_t>(code));
    i += size;
  }
  return wide;
}

std::uint16_t FixedSize(AccessType type) {
  switch (type) {
    case AccessType::Byte:
      return 1;
    case AccessType::Integer:
      return 2;
    case AccessType::Long:
    case AccessType::Single:
      return 4;
    case AccessType::Money:
    case AccessType::Double:
    case AccessType::Date:
      return 8;
    default:
      return 0;
  }
}

bool IsFixed(AccessType type) {
  return type == AccessType::Boolean || FixedSize(type) > 0;
}

std::string FixedBytes(AccessType type, const Value& value) {
  const double number = AsNumber(value);
  switch (type) {
    case AccessType::Byte:
      return Bytes(static_cast<std::uint8_t>(number));
    case AccessType::Integer:
      return Bytes(static_cast<std::int16_t>(number));
    case AccessType::Long:
      return Bytes(static_cast<std::int32_t>(number));
    case AccessType::Single:
      return Bytes(static_cast<float>(number));
    case AccessType::Money:
      return Bytes(static_cast<std::int64_t>(std::llround(number * 10000)));
    case AccessType::Boolean:
      return "";
    default:
      return Bytes(number);
  }
}

class Writer {
 public:
  std::string Write(const std::vector<AccessTable>& tables) {
    WriteHeader();
    pages_.resize(3, std::string(kPage, '\0'));
    AccessTable catalogue{"MSysObjects",
                          {{"Id", AccessType::Long},
                           {"Name", AccessType::Text},
                           {"Type", AccessType::Integer},
                           {"Flags", AccessType::Long},
                           {"LvProp", AccessType::Object}},
                          {}};
    for (const AccessTable& table : tables) {
      pages_.emplace_back(kPage, '\0');
      const std::size_t page = pages_.size() - 1;
      WriteTable(table, page);
      catalogue.rows.push_back({static_cast<double>(page), table.name, 1.0, 0.0, Value()});
    }
    WriteTable(catalogue, 2);
    return std::accumulate(pages_.begin(), pages_.end(), std::string());
  }

 private:
  // The bytes from 0x18 on are hidden behind a fixed key.
  void WriteHeader() {
    std::string page(kPage, '\0');
    page.replace(0, 20, std::string("\0\1\0\0Standard Jet DB\0", 20));
    Put(page, 0x14, std::uint32_t{1});
    Put(page, 0x3C, std::uint16_t{1254});
    Hide(page, 0x18, 128);
    pages_.push_back(page);
  }

  static void Hide(std::string& bytes, std::size_t from, std::size_t count) {
    constexpr unsigned char kKey[] = {0xC7, 0xDA, 0x39, 0x6B};
    unsigned char state[256];
    std::iota(std::begin(state), std::end(state), 0);
    unsigned char j = 0;
    for (std::size_t i = 0; i < 256; ++i) {
      j = static_cast<unsigned char>(j + state[i] + kKey[i % 4]);
      std::swap(state[i], state[j]);
    }
    unsigned char x = 0, y = 0;
    for (std::size_t i = from; i < from + count; ++i) {
      x = static_cast<unsigned char>(x + 1);
      y = static_cast<unsigned char>(y + state[x]);
      std::swap(state[x], state[y]);
      bytes[i] = static_cast<char>(static_cast<unsigned char>(bytes[i]) ^ state[static_cast<unsigned char>(state[x] + state[y])]);
    }
  }

  void WriteTable(const AccessTable& table, std::size_t definition) {
    const std::size_t map = NewRowsPage(0);
    std::vector<std::size_t> used;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      const std::string row = RowBytes(table, table.rows[i]);
      if (table.moved.contains(i)) {
        AddRow(definition, used, std::string(4, '\0'), kPointer);
        AddRow(definition, used, row, kMoved);
      } else {
        AddRow(definition, used, row, table.deleted.contains(i) ? kDeleted : 0);
      }
    }
    PutRow(map, MapOf(used), 0);
    PutRow(map, MapOf({}), 0);
    WriteDefinition(table, definition, map);
  }

  std::size_t NewRowsPage(std::uint32_t owner) {
    std::string page(kPage, '\0');
    page[0] = 1;
    page[1] = 1;
    Put(page, 4, owner);
    pages_.push_back(page);
    return pages_.size() - 1;
  }

  static std::uint16_t RowCount(const std::string& page) {
    std::uint16_t count = 0;
    std::memcpy(&count, page.data() + 12, sizeof count);
    return count;
  }
  static std::size_t RowsBegin(const std::string& page) {
    const std::uint16_t count = RowCount(page);
    if (count == 0) return kPage;
    std::uint16_t last = 0;
    std::memcpy(&last, page.data() + kRowsAt + 2U * (count - 1U), sizeof last);
    return last & 0x1FFFU;
  }
  [[nodiscard]] bool HasRoom(std::size_t page, std::size_t size) const {
    return RowsBegin(pages_[page]) >= kRowsAt + 2U * (RowCount(pages_[page]) + 1U) + size;
  }
  // Gives the number of the row on its page.
  std::uint16_t PutRow(std::size_t number, const std::string& row, std::uint16_t flags) {
    std::string& page = pages_[number];
    const std::uint16_t count = RowCount(page);
    const auto at = static_cast<std::uint16_t>(RowsBegin(page) - row.size());
    page.replace(at, row.size(), row);
    Put(page, kRowsAt + 2U * count, static_cast<std::uint16_t>(at | flags));
    Put(page, 12, static_cast<std::uint16_t>(count + 1));
    return count;
  }
  void AddRow(std::size_t definition, std::vector<std::size_t>& used, const std::string& row, std::uint16_t flags) {
    if (used.empty() || !HasRoom(used.back(), row.size())) used.push_back(NewRowsPage(static_cast<std::uint32_t>(definition)));
    PutRow(used.back(), row, flags);
  }

  // A bit for each page from the first one on.
  static std::string MapOf(const std::vector<std::size_t>& used) {
    constexpr std::size_t kBytes = 64;
    std::string map(5 + kBytes, '\0');
    const std::size_t first = used.empty() ? 0 : used.front();
    Put(map, 1, static_cast<std::uint32_t>(first));
    for (const std::size_t page : used) {
      const std::size_t bit = page - first;
      map.at(5 + bit / 8) = static_cast<char>(static_cast<unsigned char>(map.at(5 + bit / 8)) | (1U << (bit % 8)));
    }
    return map;
  }

  // Number of columns; fixed fields; the others; where these end and begin, the last first; how many they are; a bit for each field there.
  std::string RowBytes(const AccessTable& table, const Row& values) {
    std::string row = Bytes(static_cast<std::uint16_t>(table.columns.size()));
    std::string mask((table.columns.size() + 7) / 8, '\0');
    std::vector<std::uint16_t> places;
    for (const bool fixed : {true, false}) {
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const AccessType type = table.columns[i].type;
        if (IsFixed(type) != fixed) continue;
        const bool there = type == AccessType::Boolean ? AsBoolean(values[i]) : !std::holds_alternative<std::monostate>(values[i]);
        if (there) mask[i / 8] = static_cast<char>(static_cast<unsigned char>(mask[i / 8]) | (1U << (i % 8)));
        if (!fixed) places.push_back(static_cast<std::uint16_t>(row.size()));
        if (fixed) row += FixedBytes(type, values[i]);
        if (!fixed && there) row += LongBytes(type, AsText(values[i]));
      }
    }
    if (!places.empty()) {
      row += Bytes(static_cast<std::uint16_t>(row.size()));
      for (std::size_t i = places.size(); i > 0; --i) row += Bytes(places[i - 1]);
      row += Bytes(static_cast<std::uint16_t>(places.size()));
    }
    return row + mask;
  }

  std::string LongBytes(AccessType type, const std::string& text) {
    if (type == AccessType::Binary) return text;
    if (type == AccessType::Text) return Wide(text);
    const std::string content = type == AccessType::Memo ? Wide(text) : text;
    constexpr std::size_t kInRow = 200, kOnPage = 4000;
    const auto size = static_cast<std::uint32_t>(content.size());
    if (size <= kInRow) return Bytes(size | 0x80000000U) + std::string(8, '\0') + content;
    if (size <= kOnPage) return Bytes(size | 0x40000000U) + Bytes(LongPage(content)) + std::string(4, '\0');
    // In pieces that point to the next; the last is written first.
    std::uint32_t next = 0;
    for (std::size_t from = (size - 1) / kOnPage * kOnPage;; from -= kOnPage) {
      next = LongPage(Bytes(next) + content.substr(from, kOnPage));
      if (from == 0) break;
    }
    return Bytes(size) + Bytes(next) + std::string(4, '\0');
  }
  std::uint32_t LongPage(const std::string& content) {
    const std::size_t page = NewRowsPage(0x4C41564C);  // "LVAL"
    return static_cast<std::uint32_t>(page << 8U) | PutRow(page, content, 0);
  }

  void WriteDefinition(const AccessTable& table, std::size_t number, std::size_t map) {
    std::string definition(63, '\0');
    definition[0] = 2;
    definition[1] = 1;
    const std::uint32_t rows =
        table.rowsTold != UINT32_MAX ? table.rowsTold : static_cast<std::uint32_t>(table.rows.size() - table.deleted.size());
    Put(definition, 16, rows);
    definition[40] = 0x4E;
    std::string columns, names;
    std::uint16_t variable = 0, fixedAt = 0;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const AccessType type = table.columns[i].type;
      std::string column(25, '\0');
      column[0] = static_cast<char>(type);
      Put(column, 5, static_cast<std::uint16_t>(i));
      Put(column, 7, variable);
      Put(column, 9, static_cast<std::uint16_t>(i));
      column[15] = IsFixed(type) ? 3 : 2;
      Put(column, 21, fixedAt);
      Put(column, 23, IsFixed(type) ? FixedSize(type) : static_cast<std::uint16_t>(type == AccessType::Text ? 510 : 0));
      fixedAt = static_cast<std::uint16_t>(fixedAt + FixedSize(type));
      variable = static_cast<std::uint16_t>(variable + (IsFixed(type) ? 0 : 1));
      columns += column;
      const std::string name = Wide(table.columns[i].name);
      names += Bytes(static_cast<std::uint16_t>(name.size())) + name;
    }
    const auto count = static_cast<std::uint16_t>(table.columns.size());
    Put(definition, 41, count);
    Put(definition, 43, variable);
    Put(definition, 45, count);
    Put(definition, 55, static_cast<std::uint32_t>(map << 8U));
    Put(definition, 59, static_cast<std::uint32_t>(map << 8U) | 1U);
    definition += columns + names;
    Put(definition, 8, static_cast<std::uint32_t>(definition.size()));
    pages_[number].replace(0, definition.size(), definition);
  }

  std::vector<std::string> pages_;
};

}  // namespace

std::string AccessFile(const std::vector<AccessTable>& tables) {
  return Writer().Write(tables);
}

}  // namespace karvel::testing
