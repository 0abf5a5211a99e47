#include "robot/scripted_messages.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(ScriptedMessages, a_box_without_an_answer_takes_its_default) {
  ScriptedMessages messages;
  EXPECT_EQ(messages.MessageBox("Silinsin mi?", "Sil", MessageIcon::Question, MessageButtons::YesNo), MessageAnswer::No);
  EXPECT_EQ(messages.MessageBox("Bitti.", "", MessageIcon::None, MessageButtons::Ok), MessageAnswer::Ok);
  EXPECT_EQ(messages.InputBox("Yüzde", "", "0"), "0");
  EXPECT_FALSE(messages.FileDialog("Logo", ""));
  EXPECT_FALSE(messages.FontDialog({}));
}

TEST(ScriptedMessages, answers_are_taken_in_the_order_in_which_they_were_queued) {
  ScriptedMessages messages;
  for (const char* answer : {"Yes", "12,5", "OK", "Cancel", "DejaVu Sans, 10,5", "C:\\Logo.jpg"}) messages.QueueAnswer(answer);
  EXPECT_EQ(messages.MessageBox("?", "", MessageIcon::Question, MessageButtons::YesNo), MessageAnswer::Yes);
  EXPECT_EQ(messages.InputBox("Yüzde", "", "0"), "12,5");
  EXPECT_EQ(messages.InputBox("Yüzde", "", "7"), "7");
  EXPECT_FALSE(messages.InputBox("Yüzde", "", "7"));
  const auto font = messages.FontDialog({});
  ASSERT_TRUE(font);
  EXPECT_EQ(font->name, "DejaVu Sans");
  EXPECT_DOUBLE_EQ(font->size, 10);
  EXPECT_EQ(messages.FileDialog("Logo", ""), "C:\\Logo.jpg");
}

TEST(ScriptedMessages, an_answer_that_does_not_fit_is_used_up_by_its_box) {
  ScriptedMessages messages;
  messages.QueueAnswer("12");
  messages.QueueAnswer("Yes");
  EXPECT_EQ(messages.MessageBox("?", "", MessageIcon::None, MessageButtons::YesNo), MessageAnswer::No);
  EXPECT_EQ(messages.MessageBox("?", "", MessageIcon::None, MessageButtons::YesNo), MessageAnswer::Yes);
}

TEST(ScriptedMessages, a_printer_is_its_name_with_as_much_behind_it_as_is_told) {
  ScriptedMessages messages;
  const PrinterChoice preset{"Velmora PDF", "", "", 1, 1, 9};
  EXPECT_FALSE(messages.PrinterDialog(preset));
  messages.QueueAnswer("OK");
  EXPECT_EQ(messages.PrinterDialog(preset)->paperSize, 9);
  messages.QueueAnswer("Kasa");
  EXPECT_EQ(messages.PrinterDialog(preset)->deviceName, "Kasa");
  messages.QueueAnswer("Kasa, 257, 2, 3");
  const auto told = messages.PrinterDialog(preset);
  EXPECT_EQ(told->paperSize, 257);
  EXPECT_EQ(told->orientation, 2);
  EXPECT_EQ(told->copies, 3);
  messages.QueueAnswer("Cancel");
  EXPECT_FALSE(messages.PrinterDialog(preset));
}

TEST(ScriptedMessages, shown_boxes_are_told_once) {
  ScriptedMessages messages;
  messages.MessageBox("Yedeklendi.", "Yedek", MessageIcon::Information, MessageButtons::Ok);
  const Json shown = messages.TakeShown();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0], Json({{"text", "Yedeklendi."}, {"title", "Yedek"}, {"icon", "Information"}, {"buttons", "OK"}, {"answer", "OK"}}));
  EXPECT_TRUE(messages.TakeShown().empty());
}

}  // namespace
}  // namespace karvel
