// What is printed in the dialect reads back as the same tree.
#include <gtest/gtest.h>
#include <pthread.h>

#include <string>
#include <variant>

#include "random_tree.h"
#include "store/dialect/dialect.h"

namespace karvel::dialect {
namespace {

// The tree itself, for comparing: what Print leaves out (a bracket too few) shows here.
std::string Shape(const Expr& expr) {
  struct Shaper {
    std::string operator()(const Literal& e) const { return "literal " + std::to_string(e.value.index()) + AsText(e.value); }
    std::string operator()(const Field& e) const { return "field " + std::to_string(e.position); }
    std::string operator()(const Left& e) const { return "left(" + Shape(*e.text) + ' ' + std::to_string(e.count) + ')'; }
    std::string operator()(const LCase& e) const { return "lcase(" + Shape(*e.text) + ')'; }
    std::string operator()(const Compare& e) const {
      return "compare" + std::to_string(static_cast<int>(e.op)) + '(' + Shape(*e.left) + ' ' + Shape(*e.right) + ')';
    }
    std::string operator()(const Like& e) const { return "like(" + Shape(*e.text) + ' ' + e.pattern + ')'; }
    std::string operator()(const Not& e) const { return "not(" + Shape(*e.condition) + ')'; }
    std::string operator()(const And& e) const { return "and(" + Shape(*e.left) + ' ' + Shape(*e.right) + ')'; }
    std::string operator()(const Or& e) const { return "or(" + Shape(*e.left) + ' ' + Shape(*e.right) + ')'; }
  };
  return std::visit(Shaper(), expr.node);
}

TEST(RoundTrip, random_trees_read_back_the_same) {
  const DatabaseFile& file = *Catalogue::File("Stok.mdb");
  for (const Table& table : file.tables) {
    RandomTree trees(table, 20260301);
    for (int i = 0; i < 3000; ++i) {
      const ExprPtr tree = trees.Condition(5);
      const std::string text = Print(*tree, table);
      ExprPtr again;
      const Status status = ParseCriteria(text, file, table, again);
      ASSERT_TRUE(status.Ok()) << status.Message() << "\n" << text;
      ASSERT_EQ(Shape(*again), Shape(*tree)) << text;
      ASSERT_EQ(Print(*again, table), text);
    }
  }
}

TEST(RoundTrip, numbers_keep_every_digit) {
  const DatabaseFile& file = *Catalogue::File("Cari.mdb");
  const Table& table = *file.Find("CariKartlar");
  for (const double number : {0.1, 1e22, 123456789.01, 5e-324, 1.7976931348623157e308, -0.3, 1.0 / 3}) {
    const Expr tree{Compare{CompareOp::Equal, std::make_shared<Expr>(Expr{Field{table.Position("Borc")}}),
                            std::make_shared<Expr>(Expr{Literal{number}})}};
    ExprPtr again;
    ASSERT_TRUE(ParseCriteria(Print(tree, table), file, table, again).Ok()) << Print(tree, table);
    const auto& literal = std::get<Literal>(std::get<Compare>(again->node).right->node);
    EXPECT_EQ(literal.value, Value(number));
  }
}

// A tenth of the usual stack: recursion over the chain would end the program.
TEST(RoundTrip, long_chains_need_little_stack) {
  const auto run = [](void*) -> void* {
    const DatabaseFile& file = *Catalogue::File("Cari.mdb");
    const Table& table = *file.Find("CariKartlar");
    std::string text = "True";
    for (int i = 1; i < 2500; ++i) text += i % 2 == 0 ? " And True" : " And False";
    ExprPtr tree;
    EXPECT_TRUE(ParseCriteria(text, file, table, tree).Ok());
    EXPECT_EQ(tree ? Print(*tree, table) : "", text);
    tree.reset();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 192 * 1024), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, run, nullptr), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace
}  // namespace karvel::dialect
