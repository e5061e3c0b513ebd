#include "documents/words.h"

#include <gtest/gtest.h>

namespace lm {
namespace {

struct WordsCase {
  const char* digits;
  const char* words;
};

TEST(Words, OfWholeNumbers) {
  const WordsCase cases[] = {
      {"0", "zero"},
      {"000", "zero"},
      {"", ""},
      {"  ", ""},
      {" 007 ", "seven"},
      {"10", "ten"},
      {"12", "twelve"},
      {"14", "fourteen"},
      {"18", "eighteen"},
      {"20", "twenty"},
      {"42", "forty two"},
      {"90", "ninety"},
      {"100", "one hundred"},
      {"101", "one hundred and one"},
      {"999", "nine hundred and ninety nine"},
      {"1000", "one thousand"},
      {"1005", "one thousand and five"},
      {"1100", "one thousand one hundred"},
      {"1205", "one thousand two hundred and five"},
      {"15000", "fifteen thousand"},
      {"20000", "twenty thousand"},
      {"100000", "one hundred thousand"},
      {"100001", "one hundred thousand and one"},
      {"120000", "one hundred and twenty thousand"},
      {"987654", "nine hundred and eighty seven thousand six hundred and fifty four"},
      {"1000000", "one million"},
      {"1000001", "one million and one"},
      // Thousands take their "and" from hundreds of thousands alone.
      {"1020000", "one million twenty thousand"},
      {"30000000", "thirty million"},
      // Of nine digits and more the leading ones are not looked at.
      {"123456789",
       "twenty three million four hundred and fifty six thousand seven hundred and eighty nine"},
      {"100000000", ""},
      // Signs that are no digits have no word.
      {"-5", "five"},
      {"abc", ""},
  };
  for (const auto& [digits, words] : cases) EXPECT_EQ(NumberInWords(digits), words) << digits;
}

TEST(Words, OfMoney) {
  const WordsCase cases[] = {
      {"", ""},
      {"0", "zero pounds"},
      {"1", "one pounds"},
      {"100.00", "one hundred pounds"},
      {"1,234.50", "one thousand two hundred and thirty four pounds fifty pence"},
      {"1234.5", "one thousand two hundred and thirty four pounds fifty pence"},
      {"12.05", "twelve pounds five pence"},
      {"0.10", "zero pounds ten pence"},
      {".5", "zero pounds fifty pence"},
      {"7.", "seven pounds"},
      // The pence are rounded and the pounds are cut.
      {"2.675", "two pounds sixty eight pence"},
      {"1.999", "one pounds"},
      {"-5.50", "five pounds fifty pence"},
      {"abc", "zero pounds"},
      {"1e308", "one pounds"},
      {"12,3x", "one hundred and twenty three pounds"},
  };
  for (const auto& [amount, words] : cases) EXPECT_EQ(MoneyInWords(amount), words) << amount;
  EXPECT_EQ(MoneyInWords(std::string(1000, '9') + ".99"), "zero pounds");
}

}  // namespace
}  // namespace lm
