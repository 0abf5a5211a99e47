// One of each document, printed by a clerk at the desk through the printing system of this machine.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <future>

#include "app/qt_text.h"
#include "app/system_printers.h"
#include "tests/app/private_cups.h"

namespace karvel {
namespace {

struct Document {
  const char* name;
  const char* size;  // millimetres
};

// In the order in which the clerk prints them. A roll comes in the length of its media, the small slip turned onto A5.
constexpr Document kDocuments[] = {{"slip", "80 x 297"},       {"collection_slip", "80 x 297"}, {"small_slip", "148 x 210"},
                                   {"statement", "210 x 297"}, {"invoice", "210 x 297"},        {"stock_status", "210 x 297"},
                                   {"turnover", "210 x 297"},  {"orders", "210 x 297"},         {"z_report", "80 x 297"}};

// All letters, figures and signs but blanks, sorted: words that stand side by side on paper may be read as one.
std::u32string Letters(const QString& text) {
  std::u32string letters = text.simplified().remove(' ').toStdU32String();
  std::ranges::sort(letters);
  return letters;
}

QJsonArray Items(const std::string& path) {
  std::ifstream file(path);
  const std::string all((std::istreambuf_iterator<char>(file)), {});
  return QJsonDocument::fromJson(QByteArray::fromStdString(all)).object()["items"].toArray();
}

// All that the desk says that it wrote.
std::u32string Drawn(const std::string& path) {
  QString texts;
  for (const QJsonValue& item : Items(path)) texts += item["text"].toString();
  return Letters(texts);
}

std::u32string Printed(const std::string& pdf) {
  QString texts;
  for (const std::string& line : testing::TextsOf(pdf)) texts += QString::fromStdString(line);
  return Letters(texts);
}

int RollOf80(const std::string& printer) {
  const std::vector<Paper> papers = SystemPrinters().Papers(printer);
  const auto roll = std::ranges::find(papers, "Roll80", &Paper::media);
  return roll == papers.end() ? 0 : roll->number;
}

std::string PrintedBy(const std::string& folder, const std::string& printer, int roll) {
  return testing::OutputOf("python3 -B " KARVEL_SCRIPTS "/sample_documents.py '" + ToUtf8(QCoreApplication::applicationDirPath()) + "' '" +
                           folder + "' '" + printer + "' " + std::to_string(roll) + " 2>&1 && echo printed all");
}

struct SlipPaper {
  int number;
  double printable;  // millimetres across
};

class SlipsOnPaperTest : public ::testing::TestWithParam<SlipPaper> {};

TEST_P(SlipsOnPaperTest, slips_keep_all_their_letters_between_the_edges) {
  const TempFolder folder;
  const std::string documents = folder.Path() + "/documents";
  ASSERT_TRUE(PrintedBy(documents, "Velmora PDF", GetParam().number).ends_with("printed all\n"));
  const double across = GetParam().printable / 25.4 * 203;
  for (const std::string name : {"slip", "collection_slip", "z_report"}) {
    const QJsonArray items = Items(documents + "/" + name + ".json");
    EXPECT_GT(items.size(), 10) << name;
    for (const QJsonValue& item : items) {
      if (!item.toObject().contains("text")) continue;
      EXPECT_GE(item["x"].toDouble(), 0) << name << ": " << ToUtf8(item["text"].toString());
      EXPECT_LE(item["x"].toDouble() + item["width"].toDouble(), across + 0.5) << name << ": " << ToUtf8(item["text"].toString());
    }
    EXPECT_TRUE(Printed(documents + "/" + name + ".pdf") == Drawn(documents + "/" + name + ".json")) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Papers, SlipsOnPaperTest,
                         ::testing::Values(SlipPaper{256, 48}, SlipPaper{257, 72}, SlipPaper{11, 138}, SlipPaper{9, 200}),
                         [](const auto& paper) { return "paper" + std::to_string(paper.param.number); });

TEST(PrintedDocumentsTest, each_comes_out_of_the_queue_with_all_its_letters_on_its_paper) {
  testing::PrivateCups& cups = testing::SharedCups();
  cups.MakeQueue();
  setenv("KARVEL_PRINTERS", "system", 1);
  const TempFolder folder;
  const std::string documents = folder.Path() + "/documents";
  auto work = std::async(std::launch::async, [&] { return PrintedBy(documents, "Kasa", RollOf80("Kasa")); });
  std::vector<std::u32string> printed;
  std::vector<std::string> sizes;
  for (std::size_t i = 0; i < std::size(kDocuments); ++i) {
    const std::string received = cups.Received(60000);
    printed.push_back(Printed(received));
    sizes.push_back(testing::SizeOf(received));
  }
  EXPECT_TRUE(work.get().ends_with("printed all\n"));
  unsetenv("KARVEL_PRINTERS");
  for (std::size_t i = 0; i < std::size(kDocuments); ++i) {
    const std::string name = kDocuments[i].name;
    const std::u32string drawn = Drawn(documents + "/" + name + ".json");
    EXPECT_GT(drawn.size(), 100U) << name;
    EXPECT_TRUE(printed[i] == drawn) << name;
    EXPECT_EQ(sizes[i], kDocuments[i].size) << name;
  }
}

}  // namespace
}  // namespace karvel
