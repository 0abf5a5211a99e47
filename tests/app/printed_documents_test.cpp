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

// All that the desk says that it wrote.
std::u32string Drawn(const std::string& path) {
  std::ifstream file(path);
  const std::string all((std::istreambuf_iterator<char>(file)), {});
  QString texts;
  for (const QJsonValue& item : QJsonDocument::fromJson(QByteArray::fromStdString(all)).object()["items"].toArray())
    texts += item.toObject()["text"].toString();
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

TEST(PrintedDocumentsTest, each_comes_out_of_the_queue_with_all_its_letters_on_its_paper) {
  testing::PrivateCups& cups = testing::SharedCups();
  cups.MakeQueue();
  setenv("KARVEL_PRINTERS", "system", 1);
  const TempFolder folder;
  const std::string documents = folder.Path() + "/documents";
  const std::string clerk = "python3 -B " KARVEL_SCRIPTS "/sample_documents.py '" + ToUtf8(QCoreApplication::applicationDirPath()) + "' '" +
                            documents + "' Kasa " + std::to_string(RollOf80("Kasa")) + " 2>&1 && echo printed all";
  auto work = std::async(std::launch::async, [&] { return testing::OutputOf(clerk); });
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
