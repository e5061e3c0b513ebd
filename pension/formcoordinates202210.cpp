// Places on the blank forms of the edition of October 2022.
#include "pension/formplaces.h"

namespace lm {
namespace {

using namespace places;
using enum FormItem;

constexpr FormPlace kA[] = {
    Field(1, LocumOwnUse, 147, 52.6, 52.5, 9, 8),
    Text(4, TitleAndName, 51, 34, 12),
    Text(4, SchemeNumber, 51, 44, 12),
    Text(4, Authority, 51, 54, 12),
    Text(4, GmcNumber, 51, 70, 12),
    Text(4, OdsCode, 149, 70, 12),
    Picture(4, Signature, 45, 164, 30, 6),
    Text(4, TodayInWords, 154, 168, 12),
    Right(4, Amount, 191, 192, 12),
    Right(4, Pensionable, 191, 200, 12),
    Right(4, Employer, 191, 208, 12),
    Down(Boxes(4, RunFirstDay, 27, 78, 12, 5.9, kDateBoxes), 8, 10),
    Down(Boxes(4, RunLastDay, 93, 78, 12, 5.9, kDateBoxes), 8, 10),
    Down(Boxes(7, RunFirstDay, 27, 49, 12, 5.9, kDateBoxes), 8, 14),
    Down(Boxes(7, RunLastDay, 93, 49, 12, 5.9, kDateBoxes), 8, 14),
    Boxes(7, InsuranceNumber, 45, 33, 12, 7, kInsuranceBoxes),
};

constexpr FormPlace kB[] = {
    Boxes(1, InsuranceNumber, 93, 198, 10, 7, kInsuranceBoxes),
    Boxes(1, MonthShort, 160, 198, 10, 6, "000"),
    Boxes(1, YearShort, 194, 198, 10, 7, "00"),
    IfLong(LongText::Narrower, Text(1, LastName, 12, 216, 10)),
    Text(1, FirstName, 68, 216, 10),
    Boxes(1, DateOfField5, 150, 216, 10, 5, kDateBoxes),
    Text(1, SchemeNumber, 12, 233, 10),
    Text(1, Telephone, 68, 233, 10),
    Text(1, Mobile, 144, 233, 10),
    Text(1, Email, 44, 245, 10),
    Text(1, Address, 44, 257, 10),
    Text(1, Authority, 44, 269, 10),
    Text(1, MonthLong, 100, 281, 10),
    Text(1, YearLong, 160, 281, 10),
    Tick(2, 5.1, 21, 45, 10),
    Tick(2, 5.7, 37, 45, 10),
    Tick(2, 6.1, 54, 45, 10),
    Tick(2, 6.8, 71, 45, 10),
    Tick(2, 7.7, 87, 45, 10),
    Tick(2, 8.8, 103, 45, 10),
    Tick(2, 9.8, 118, 45, 10),
    Tick(2, 10, 132, 45, 10),
    Tick(2, 11.6, 150, 45, 10),
    Tick(2, 12.5, 168, 45, 10),
    Tick(2, 13.5, 185, 45, 10),
    Down(Text(2, PracticeCode, 9, 77, 10), 6, 8),
    Down(IfLong(LongText::Smaller, Text(2, PracticeName, 29, 77, 10)), 6, 8),
    Down(Text(2, PracticeFirstDay, 77, 77, 10), 6, 8),
    Down(Text(2, PracticeLastDay, 98, 77, 10), 6, 8),
    Down(Text(2, PracticeReceived, 119, 77, 10), 6, 8),
    Down(Money(2, PracticeAmount, 154, 159, 77, 10), 6, 8),
    Down(Money(2, PracticePensionable, 182, 187, 77, 10), 6, 8),
    Text(2, TooManyPractices, 27, 113, 10),
    Money(2, BoxA, 187, 191, 178, 10),
    Money(2, BoxB, 187, 191, 186, 10),
    Money(2, BoxC, 187, 191, 194, 10),
    Money(2, BoxD, 187, 191, 202, 10),
    Money(2, BoxE, 187, 191, 209, 10),
    Money(2, BoxF, 187, 191, 217, 10),
    Money(2, BoxG, 187, 191, 225, 10),
    Money(2, BoxH, 187, 191, 238, 10),
    Money(2, BoxI, 187, 191, 245, 10),
};

constexpr FormPlace kSolo[] = {
    Text(2, TitleAndName, 76, 44, 12),
    Text(2, SchemeNumber, 76, 54, 12),
    Text(2, Authority, 75, 72, 12),
    Boxes(2, InsuranceNumber, 138, 63, 12, 7.8, kInsuranceBoxes),
    Boxes(2, FirstDay, 33, 89, 12, 6, kDateBoxes),
    Boxes(2, LastDay, 102, 89, 12, 6, kDateBoxes),
    Right(2, SoloA, 188, 140, 12),
    Right(2, SoloB, 188, 151, 12),
    Right(2, SoloC, 188, 161, 12),
    Text(2, SoloD, 180, 171, 12),
    Right(2, SoloE, 188, 183, 12),
    Right(2, SoloAddedYears, 188, 192, 12),
    Right(2, SoloAdditional, 188, 200, 12),
    Right(2, SoloAvc, 188, 208, 12),
    Right(2, SoloG, 188, 219, 12),
    Right(2, SoloH, 188, 226, 12),
    Right(2, SoloI, 188, 233, 12),
    Right(2, SoloJ, 188, 242, 12),
    Right(2, SoloK, 188, 253, 12),
    Text(3, TitleAndName, 67, 151, 10),
    Picture(3, Signature, 67, 158, 45, 9),
    Boxes(3, Today, 67, 174, 10, 7, kDateBoxes),
};

}  // namespace

const std::span<const FormPlace> kFormA202210 = kA;
const std::span<const FormPlace> kFormB202210 = kB;
const std::span<const FormPlace> kFormSolo202210 = kSolo;

}  // namespace lm
