// Places on the blank forms of the edition of April 2023.
#include "pension/formplaces.h"

namespace lm {
namespace {

using namespace places;
using enum FormItem;

constexpr FormPlace kA[] = {
    Field(1, LocumOwnUse, 147, 52.6, 52.5, 9, 8),
    Text(4, TitleAndName, 51, 20, 12),
    Text(4, SchemeNumber, 51, 30, 12),
    Text(4, Authority, 51, 40, 12),
    Text(4, GmcNumber, 51, 56, 12),
    Text(4, OdsCode, 149, 56, 12),
    Picture(4, Signature, 45, 151, 30, 6),
    Text(4, TodayInWords, 154, 155, 12),
    Right(4, Amount, 191, 179, 12),
    Right(4, Pensionable, 191, 187, 12),
    Right(4, Employer, 191, 195, 12),
    Down(Boxes(4, RunFirstDay, 27, 91, 12, 5.9, kDateBoxes), 8, 7),
    Down(Boxes(4, RunLastDay, 93, 91, 12, 5.9, kDateBoxes), 8, 7),
    Down(Boxes(5, RunFirstDay, 27, 54, 12, 5.9, kDateBoxes), 8, 14),
    Down(Boxes(5, RunLastDay, 93, 54, 12, 5.9, kDateBoxes), 8, 14),
    Boxes(5, InsuranceNumber, 45, 42, 12, 7, kInsuranceBoxes),
};

constexpr FormPlace kB[] = {
    Boxes(1, InsuranceNumber, 93, 204, 10, 7, kInsuranceBoxes),
    Boxes(1, MonthShort, 160, 204, 10, 6, "000"),
    Boxes(1, YearShort, 194, 204, 10, 7, "00"),
    IfLong(LongText::Narrower, Text(1, LastName, 12, 221, 10)),
    Text(1, FirstName, 68, 221, 10),
    Boxes(1, DateOfField5, 150, 221, 10, 5, kDateBoxes),
    Text(1, SchemeNumber, 12, 237, 10),
    Text(1, Telephone, 68, 237, 10),
    Text(1, Mobile, 144, 237, 10),
    Text(1, Email, 44, 248, 10),
    Text(1, Address, 44, 259, 10),
    Text(1, Authority, 44, 270, 10),
    Text(1, MonthLong, 100, 281, 10),
    Text(1, YearLong, 160, 281, 10),
    Tick(2, 5.1, 21, 63, 10),
    Tick(2, 5.7, 37, 63, 10),
    Tick(2, 6.1, 54, 63, 10),
    Tick(2, 6.8, 71, 63, 10),
    Tick(2, 7.7, 87, 63, 10),
    Tick(2, 8.8, 103, 63, 10),
    Tick(2, 9.8, 118, 63, 10),
    Tick(2, 10, 132, 63, 10),
    Tick(2, 11.6, 150, 63, 10),
    Tick(2, 12.5, 168, 63, 10),
    Tick(2, 13.5, 185, 63, 10),
    Down(Text(2, PracticeCode, 11, 95, 10), 6, 8),
    Down(IfLong(LongText::Smaller, Text(2, PracticeName, 31, 95, 10)), 6, 8),
    Down(Text(2, PracticeFirstDay, 77, 95, 10), 6, 8),
    Down(Text(2, PracticeLastDay, 98, 95, 10), 6, 8),
    Down(Text(2, PracticeReceived, 119, 95, 10), 6, 8),
    Down(Money(2, PracticeAmount, 154, 159, 95, 10), 6, 8),
    Down(Money(2, PracticePensionable, 182, 187, 95, 10), 6, 8),
    Text(2, TooManyPractices, 27, 131, 10),
    Money(2, BoxA, 187, 191, 199, 10),
    Money(2, BoxB, 187, 191, 207, 10),
    Money(2, BoxC, 187, 191, 215, 10),
    Money(2, BoxD, 187, 191, 223, 10),
    Money(2, BoxE, 187, 191, 230, 10),
    Money(2, BoxF, 187, 191, 238, 10),
    Money(2, BoxG, 187, 191, 246, 10),
    Money(2, BoxH, 187, 191, 259, 10),
    Money(2, BoxI, 187, 191, 266, 10),
};

constexpr FormPlace kSolo[] = {
    Text(2, TitleAndName, 77, 84, 12),
    Text(2, SchemeNumber, 77, 94, 12),
    Text(2, Authority, 76, 112, 12),
    Boxes(2, InsuranceNumber, 139, 103, 12, 7.8, kInsuranceBoxes),
    Boxes(2, FirstDay, 34, 129, 12, 6, kDateBoxes),
    Boxes(2, LastDay, 103, 129, 12, 6, kDateBoxes),
    Right(2, SoloA, 188, 99, 12),
    Right(2, SoloB, 188, 111, 12),
    Right(2, SoloC, 188, 121, 12),
    Text(2, SoloD, 180, 131, 12),
    Right(2, SoloE, 188, 143, 12),
    Right(2, SoloAddedYears, 188, 152, 12),
    Right(2, SoloAdditional, 188, 159, 12),
    Right(2, SoloAvc, 188, 168, 12),
    Right(2, SoloG, 188, 179, 12),
    Right(2, SoloH, 188, 186, 12),
    Right(2, SoloI, 188, 193, 12),
    Right(2, SoloJ, 188, 202, 12),
    Right(2, SoloK, 188, 213, 12),
    Text(3, TitleAndName, 67, 151, 10),
    Picture(3, Signature, 67, 158, 45, 9),
    Boxes(3, Today, 67, 174, 10, 7, kDateBoxes),
};

}  // namespace

const std::span<const FormPlace> kFormA202304 = kA;
const std::span<const FormPlace> kFormB202304 = kB;
const std::span<const FormPlace> kFormSolo202304 = kSolo;

}  // namespace lm
