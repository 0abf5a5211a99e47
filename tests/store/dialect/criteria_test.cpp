// Criteria of finds: what the desk writes, what a clerk's typing makes of it, and what is refused.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "store/dialect/dialect.h"

namespace karvel::dialect {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const DatabaseFile& FileOf(const std::string& name) {
  return *Catalogue::File(name);
}

// The criterion as read, printed back; the message of a refused one, behind an exclamation mark.
std::string Read(const std::string& text, const std::string& file = "Cari.mdb", const std::string& table = "CariKartlar") {
  ExprPtr expr;
  const Table& source = *FileOf(file).Find(table);
  const Status status = ParseCriteria(text, FileOf(file), source, expr);
  if (status.Ok()) return Print(*expr, source);
  EXPECT_EQ(status.Kind(), ErrorKind::BadText);
  EXPECT_EQ(expr, nullptr);
  return "!" + status.Message();
}

testing::Matcher<std::string> IsRefused() {
  return StartsWith("!");
}

TEST(Criteria, of_the_desk_are_read) {
  EXPECT_EQ(Read("Unvan='Muhtelif Müşteri'"), "Unvan = 'Muhtelif Müşteri'");
  EXPECT_EQ(Read("CariKod='=110'"), "CariKod = '=110'");
  EXPECT_EQ(Read("KartNo='4012'"), "KartNo = '4012'");
  EXPECT_EQ(Read("Unvan Like 'ali*'"), "Unvan Like 'ali*'");
  EXPECT_EQ(Read("CariKod Like 'AL?'"), "CariKod Like 'AL?'");
  EXPECT_EQ(Read("StokAdi Like 'çay*'", "Stok.mdb", "StokKartlar"), "StokAdi Like 'çay*'");
  EXPECT_EQ(Read("StokKod Like '01*'", "Stok.mdb", "StokKartlar"), "StokKod Like '01*'");
  EXPECT_EQ(Read("Barkod='8690504123456'", "Stok.mdb", "StokKartlar"), "Barkod = '8690504123456'");
  EXPECT_EQ(Read("StokKod='S1'", "Stok.mdb", "StokKartlar"), "StokKod = 'S1'");
  EXPECT_EQ(Read("StokAdi='Çay 500 g'", "Stok.mdb", "StokKartlar"), "StokAdi = 'Çay 500 g'");
  EXPECT_EQ(Read("StokAd Like 'çay*'", "Karvel.mdb", "Datam"), "StokAd Like 'çay*'");
  EXPECT_EQ(Read("DigerId='26000012T'", "Stok.mdb", "StokHareket"), "DigerId = '26000012T'");
  EXPECT_EQ(Read("Barcode='SN-1'", "SeriNo.mdb", "SeriNo"), "barcode = 'SN-1'");
  EXPECT_EQ(Read("Tarih='2026'", "Index.mdb", "Tarih"), "Tarih = '2026'");
  EXPECT_EQ(Read("Gurup='WinKarvel1'", "Stok.mdb", "Gurup"), "Gurup = 'WinKarvel1'");
  EXPECT_EQ(Read("StokKod='S1' And CariKod='M1'", "Cari.mdb", "Cari"), "StokKod = 'S1' And CariKod = 'M1'");
  EXPECT_EQ(Read("CariKod='M1'", "Cari.mdb", "VadeGün"), "CariKod = 'M1'");
  EXPECT_EQ(Read("VadeTarih=#03/01/2026#", "Cari.mdb", "VadeGün"), "VadeTarih = #03/01/2026#");
  EXPECT_EQ(Read("FaturaNo='A1'", "Fatura.mdb", "Faturalar"), "FaturaNo = 'A1'");
  EXPECT_EQ(Read("StokKod='S1'", "Fatura.mdb", "GirenCikan"), "StokKod = 'S1'");
  EXPECT_EQ(Read("CariHarKod='=110' And Carisi='M1' And Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59#", "Cari.mdb",
                 "CariHareket"),
            "cariharkod = '=110' And Carisi = 'M1' And Tarih >= #03/01/2026# And Tarih <= #03/01/2026 23:59:59#");
}

TEST(Criteria, names_ignore_case_and_may_stand_in_brackets) {
  EXPECT_EQ(Read("CARIKOD='x'"), "CariKod = 'x'");
  EXPECT_EQ(Read("[CariKod]='x'"), "CariKod = 'x'");
  EXPECT_EQ(Read("[0fiyat]>0Fiyat", "Cari.mdb", "Cari"), "[0Fiyat] > [0Fiyat]");
  EXPECT_EQ(Read("unvan LIKE 'x' AND NOT borc=1 oR heskullan=TRUE"), "Unvan Like 'x' And Not Borc = 1 Or HesKullan = True");
  EXPECT_THAT(Read("[And]='x'"), HasSubstr("no field \"And\""));
}

TEST(Criteria, a_semicolon_may_end_them) {
  EXPECT_EQ(Read("Unvan='x';"), "Unvan = 'x'");
  EXPECT_THAT(Read("Unvan='x';;"), IsRefused());
  EXPECT_THAT(Read("Unvan='x'; Delete From CariKartlar"), IsRefused());
}

TEST(Criteria, a_text_is_closed_by_the_quote_that_opened_it) {
  EXPECT_EQ(Read("Unvan=\"O'Neil\""), "Unvan = 'O''Neil'");
  EXPECT_EQ(Read("Unvan='5\" boru'"), "Unvan = '5\" boru'");
  EXPECT_EQ(Read("Unvan='O''Neil'"), "Unvan = 'O''Neil'");
  EXPECT_EQ(Read("Unvan=\"\"\"\""), "Unvan = '\"'");
  EXPECT_EQ(Read("Unvan=''''''"), "Unvan = ''''''");
}

TEST(Criteria, a_typed_quote_fails_the_find_or_is_another_condition_of_the_same_table) {
  EXPECT_THAT(Read("Unvan Like 'O'Neil*'"), IsRefused());
  EXPECT_THAT(Read("Unvan=''' "), IsRefused());
  EXPECT_EQ(Read("Unvan='' Or '1'='1'"), "Unvan = '' Or '1' = '1'");
  EXPECT_THAT(Read("Unvan=''; Drop Table CariKartlar --'"), IsRefused());
  EXPECT_THAT(Read("Unvan='' Union Select * From CariKartlar'"), IsRefused());
  EXPECT_THAT(Read("Unvan='' Or (Select 1)=1"), IsRefused());
  EXPECT_THAT(Read("Unvan='' Or Exists(Select 1)"), IsRefused());
}

TEST(Criteria, precedence_is_not_then_and_then_or) {
  EXPECT_EQ(Read("Borc=1 Or Borc=2 And Not Borc=3"), "Borc = 1 Or Borc = 2 And Not Borc = 3");
  EXPECT_EQ(Read("(Borc=1 Or Borc=2) And Borc=3"), "(Borc = 1 Or Borc = 2) And Borc = 3");
  EXPECT_EQ(Read("Borc=1 Or (Borc=2 And Borc=3)"), "Borc = 1 Or Borc = 2 And Borc = 3");
  EXPECT_EQ(Read("Not (Borc=1 And Borc=2)"), "Not (Borc = 1 And Borc = 2)");
  EXPECT_EQ(Read("(Not Borc=1) And Borc=2"), "Not Borc = 1 And Borc = 2");
  EXPECT_EQ(Read("Borc=1 And (Borc=2 And Borc=3)"), "Borc = 1 And (Borc = 2 And Borc = 3)");
  EXPECT_EQ(Read("((Borc))=(1)"), "Borc = 1");
}

TEST(Criteria, dates_are_month_first_and_must_exist) {
  const auto date = [](const std::string& literal) { return Read("Tarih>=" + literal, "Karvel.mdb", "Datam"); };
  EXPECT_EQ(date("#3/1/2026#"), "Tarih >= #03/01/2026#");
  EXPECT_EQ(date("#03/01/2026 23:59:59#"), "Tarih >= #03/01/2026 23:59:59#");
  EXPECT_EQ(date("#02/29/2000#"), "Tarih >= #02/29/2000#");
  EXPECT_EQ(date("# 2/29/2024 7:05:09 #"), "Tarih >= #02/29/2024 07:05:09#");
  for (const char* wrong : {"#02/29/2026#",
                            "#02/29/1900#",
                            "#13/01/2026#",
                            "#00/01/2026#",
                            "#04/31/2026#",
                            "#03/00/2026#",
                            "#03/01/26#",
                            "#03/01/20261#",
                            "#03.01.2026#",
                            "#2026-03-01#",
                            "#03/01/2026 24:00:00#",
                            "#03/01/2026 23:60:00#",
                            "#03/01/2026 23:59:60#",
                            "#03/01/2026 23#",
                            "#03/01/2026 23:59#",
                            "##",
                            "#03/01/2026",
                            "#03/01/0001#",
                            "#-3/01/2026#",
                            "#//#",
                            "#03/01/2026 x#"}) {
    EXPECT_THAT(date(wrong), IsRefused()) << wrong;
  }
}

TEST(Criteria, numbers_have_a_sign_and_a_point) {
  EXPECT_EQ(Read("Borc=-12.50"), "Borc = -12.5");
  EXPECT_EQ(Read("Borc<>+0.1"), "Borc <> 0.1");
  EXPECT_EQ(Read("Borc>=.5"), "Borc >= 0.5");
  EXPECT_EQ(Read("Borc=1e3"), "Borc = 1000");
  EXPECT_THAT(Read("Borc=1,5"), IsRefused());
  EXPECT_THAT(Read("Borc=1.5x"), IsRefused());
  EXPECT_THAT(Read("Borc=--1"), IsRefused());
  EXPECT_THAT(Read("Borc=1e999"), IsRefused());
  EXPECT_THAT(Read("Borc=."), IsRefused());
  EXPECT_THAT(Read("Borc=1+1"), IsRefused());
}

TEST(Criteria, types_must_agree) {
  EXPECT_THAT(Read("CariKod=5"), HasSubstr("a text compared with a number"));
  EXPECT_THAT(Read("Borc='5'"), HasSubstr("a number compared with a text"));
  EXPECT_THAT(Read("Tarih='2026'", "Karvel.mdb", "Datam"), HasSubstr("a date compared with a text"));
  EXPECT_THAT(Read("Tarih=5", "Karvel.mdb", "Datam"), IsRefused());
  EXPECT_THAT(Read("HesKullan='True'"), IsRefused());
  EXPECT_THAT(Read("Borc=True"), IsRefused());
  EXPECT_THAT(Read("HesKullan<True"), IsRefused());
  EXPECT_THAT(Read("HesKullan=Borc"), IsRefused());
  EXPECT_THAT(Read("Borc Like '5*'"), IsRefused());
  EXPECT_THAT(Read("Unvan Like 5"), IsRefused());
  EXPECT_THAT(Read("Left(Borc,1)='x'"), IsRefused());
  EXPECT_THAT(Read("LCase(True)='x'"), IsRefused());
  EXPECT_THAT(Read("Unvan"), HasSubstr("a condition"));
  EXPECT_THAT(Read("Borc And True"), IsRefused());
  EXPECT_THAT(Read("(Borc=1)=(Borc=1)"), IsRefused());
  EXPECT_EQ(Read("Unvan=CariKod And Borc<Alacak"), "Unvan = CariKod And Borc < Alacak");
}

TEST(Criteria, booleans_may_be_written_as_numbers) {
  EXPECT_EQ(Read("HesKullan=0"), "HesKullan = False");
  EXPECT_EQ(Read("-1=HesKullan"), "True = HesKullan");
  EXPECT_EQ(Read("HesKullan<>1"), "HesKullan <> True");
  EXPECT_EQ(Read("Not HesKullan And True"), "Not HesKullan And True");
}

TEST(Criteria, left_takes_a_whole_count) {
  EXPECT_EQ(Read("left ( LCase(Unvan) , 2 )='ab'"), "Left(LCase(Unvan), 2) = 'ab'");
  EXPECT_EQ(Read("Left(Unvan,0)=''"), "Left(Unvan, 0) = ''");
  EXPECT_THAT(Read("Left(Unvan,-1)=''"), IsRefused());
  EXPECT_THAT(Read("Left(Unvan,1.5)=''"), IsRefused());
  EXPECT_THAT(Read("Left(Unvan,99999999999)=''"), IsRefused());
  EXPECT_THAT(Read("Left(Unvan)=''"), IsRefused());
  EXPECT_THAT(Read("Left Unvan"), IsRefused());
}

TEST(Criteria, half_sentences_are_refused) {
  for (const char* wrong : {"",
                            " ",
                            "And",
                            "Not",
                            "(",
                            ")",
                            "Unvan=",
                            "=Unvan",
                            "Unvan='a' And",
                            "Unvan='a' Unvan='b'",
                            "(Unvan='a'",
                            "Unvan='a')",
                            "Unvan==''",
                            "Unvan='a' And Or Unvan='b'",
                            "Unvan Not Like 'a'",
                            "Unvan Like",
                            "Like 'a'",
                            "Unvan=<''",
                            "Unvan!=''",
                            "'",
                            "\"",
                            "[",
                            "]",
                            "[]",
                            "#",
                            "*",
                            "?",
                            "Unvan='a' Or",
                            "Sum(Borc)=1",
                            "Unvan In ('a')",
                            "Unvan Is Null",
                            "Unvan=?1",
                            "Unvan=:x",
                            "Borc<1<2"}) {
    EXPECT_THAT(Read(wrong), IsRefused()) << wrong;
  }
}

TEST(Criteria, the_message_says_what_and_where) {
  EXPECT_EQ(Read("Ünvan='x'"), "!CariKartlar has no field \"Ünvan\" at letter 1 of: Ünvan='x'");
  EXPECT_THAT(Read("Unvan='ş' And Yok=1"), HasSubstr("\"Yok\" at letter 15"));
  EXPECT_THAT(Read("Unvan='a\nb"), HasSubstr("a text is not closed at letter 7 of: Unvan='a?b"));
}

TEST(Criteria, any_bytes_are_a_text_or_a_refusal) {
  EXPECT_EQ(Read("Unvan='a\x01\t\n\x7f'"), "Unvan = 'a\x01\t\n\x7f'");
  EXPECT_EQ(Read("Unvan='\xff\xc3'"), "Unvan = '\xff\xc3'");
  EXPECT_THAT(Read(std::string("Unvan='a\0b'", 11)), HasSubstr("a zero byte"));
  EXPECT_THAT(Read("\xff\xfe"), IsRefused());
  EXPECT_THAT(Read("Unvan\x01=''"), IsRefused());
  EXPECT_EQ(Read("Unvan='" + std::string(10'000, 'x') + "'"), "Unvan = '" + std::string(10'000, 'x') + "'");
  EXPECT_THAT(Read(std::string(10'000, 'x')), IsRefused());
  EXPECT_THAT(Read("Unvan='" + std::string(65 * 1024, 'x') + "'"), HasSubstr("64 KiB"));
}

std::string Repeated(const std::string& piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(Criteria, nesting_ends_at_two_hundred) {
  for (const auto& [open, close] : {std::pair("(", ")"), std::pair("Not ", ""), std::pair("Not(", ")")}) {
    const int most = std::string(open) == "Not(" ? 100 : 200;
    EXPECT_EQ(Read(Repeated(open, most) + "Borc=1" + Repeated(close, most)).front() == '!', false) << open;
    EXPECT_THAT(Read(Repeated(open, most + 1) + "Borc=1" + Repeated(close, most + 1)), HasSubstr("nested deeper")) << open;
    EXPECT_THAT(Read(Repeated(open, 10'000)), IsRefused()) << open;
  }
  // Side by side is not nested.
  EXPECT_THAT(Read("True" + Repeated(" And Not (Borc=1)", 300)), StartsWith("True And"));
  EXPECT_THAT(Read("True" + Repeated(" And Left((Unvan),1)=''", 300)), StartsWith("True And"));
  EXPECT_EQ(Read(Repeated("LCase(", 200) + "Unvan" + Repeated(")", 200) + "=''").front(), 'L');
  EXPECT_THAT(Read(Repeated("LCase(", 201) + "Unvan" + Repeated(")", 201) + "=''"), HasSubstr("nested deeper"));
}

TEST(Criteria, a_long_chain_is_read_up_to_five_thousand_parts) {
  // A comparison is three parts, and each word between two one more.
  const std::string chain = "1=1" + Repeated(" Or 1=1", 1249);
  EXPECT_EQ(Read(chain).size(), std::string("1 = 1").size() + 1249 * std::string(" Or 1 = 1").size());
  EXPECT_THAT(Read(chain + " Or 1=1"), HasSubstr("more than 5000 parts"));
  const std::string flags = "True" + Repeated(" And True", 2499);
  EXPECT_EQ(Read(flags), flags);
  EXPECT_THAT(Read(flags + " And True"), HasSubstr("more than 5000 parts"));
}

}  // namespace
}  // namespace karvel::dialect
