// Places on the blank forms of the edition of April 2024.
#include "pension/formplaces.h"

namespace lm {
namespace {

using namespace places;
using enum FormItem;

constexpr FormPlace kA[] = {
    Field(1, LocumOwnUse, 147, 52.6, 52.5, 9, 8),
    Text(4, TitleAndName, 51, 30, 12),
    Text(4, SchemeNumber, 51, 40, 12),
    Text(4, Authority, 51, 51, 12),
    Text(4, GmcNumber, 51, 63, 12),
    Text(4, OdsCode, 149, 64, 12),
    Picture(4, Signature, 44, 158, 30, 6),
    Boxes(4, Today, 112, 162, 12, 9, kDateBoxes),
    Right(4, Amount, 191, 194, 12),
    Right(4, Pensionable, 191, 202, 12),
    Right(4, Employer, 191, 210, 12),
    Down(Boxes(4, RunFirstDay, 28, 84, 12, 8, kDateBoxes), 8, 9),
    Down(Boxes(4, RunLastDay, 115, 84, 12, 8, kDateBoxes), 8, 9),
    Down(Boxes(5, RunFirstDay, 28, 58, 12, 8, kDateBoxes), 8, 14),
    Down(Boxes(5, RunLastDay, 116, 58, 12, 8, kDateBoxes), 8, 14),
    Boxes(5, InsuranceNumber, 45, 37, 12, 7, kInsuranceBoxes),
};

constexpr FormPlace kB[] = {
    Boxes(1, InsuranceNumber, 93, 214, 10, 7, kInsuranceBoxes),
    Boxes(1, MonthShort, 160, 214, 10, 6, "000"),
    Boxes(1, YearShort, 194, 214, 10, 7, "00"),
    IfLong(LongText::Narrower, Text(1, LastName, 12, 231, 10)),
    Text(1, FirstName, 68, 231, 10),
    Boxes(1, DateOfField5, 150, 231, 10, 5, kDateBoxes),
    Text(1, SchemeNumber, 12, 246, 10),
    Text(1, Telephone, 68, 246, 10),
    Text(1, Mobile, 144, 246, 10),
    Text(1, Email, 44, 256, 10),
    Text(1, Address, 44, 266, 10),
    Text(1, Authority, 44, 276, 10),
    Text(1, MonthLong, 100, 284, 10),
    Text(1, YearLong, 160, 284, 10),
    Text(2, Authority, 45, 14, 10),
    Text(2, MonthLong, 100, 25, 10),
    Text(2, YearLong, 145, 25, 10),
    Tick(2, 5.2, 22, 41, 10),
    Tick(2, 6.5, 40, 41, 10),
    Tick(2, 8.3, 57.5, 41, 10),
    Tick(2, 9.8, 75, 41, 10),
    Tick(2, 10.7, 94.2, 41, 10),
    Tick(2, 12.5, 113, 41, 10),
    Down(Text(2, PracticeCode, 11, 72, 10), 6, 8),
    Down(IfLong(LongText::Smaller, Text(2, PracticeName, 31, 72, 10)), 6, 8),
    Down(Text(2, PracticeFirstDay, 77, 72, 10), 6, 8),
    Down(Text(2, PracticeLastDay, 98, 72, 10), 6, 8),
    Down(Text(2, PracticeReceived, 119, 72, 10), 6, 8),
    Down(Money(2, PracticeAmount, 154, 159, 72, 10), 6, 8),
    Down(Money(2, PracticePensionable, 182, 187, 72, 10), 6, 8),
    Text(2, TooManyPractices, 27, 108, 10),
    Money(2, BoxA, 187, 191, 169, 10),
    Money(2, BoxB, 187, 191, 176, 10),
    Money(2, BoxC, 187, 191, 183, 10),
    Money(2, BoxD, 187, 191, 190, 10),
    Money(2, BoxE, 187, 191, 199, 10),
    Money(2, BoxF, 187, 191, 207, 10),
    Money(2, BoxG, 187, 191, 214, 10),
    Money(2, BoxH, 187, 191, 226, 10),
    Money(2, BoxI, 187, 191, 234, 10),
};

constexpr FormPlace kSolo[] = {
    Text(2, TitleAndName, 77, 73, 12),
    Text(2, SchemeNumber, 77, 83, 12),
    Text(2, Authority, 77, 101, 12),
    Boxes(2, InsuranceNumber, 139, 92, 12, 7.8, kInsuranceBoxes),
    Boxes(2, FirstDay, 34, 118, 12, 6, kDateBoxes),
    Boxes(2, LastDay, 103, 118, 12, 6, kDateBoxes),
    Right(2, SoloA, 188, 127, 12),
    Right(2, SoloB, 188, 137, 12),
    Right(2, SoloC, 188, 147, 12),
    Text(2, SoloD, 180, 158, 12),
    Right(2, SoloE, 188, 170, 12),
    Right(2, SoloAddedYears, 188, 180, 12),
    Right(2, SoloAdditional, 188, 187, 12),
    Right(2, SoloAvc, 188, 196, 12),
    Right(2, SoloG, 188, 207, 12),
    Right(2, SoloH, 188, 214, 12),
    Right(2, SoloI, 188, 222, 12),
    Right(2, SoloJ, 188, 231, 12),
    Right(2, SoloK, 188, 243, 12),
    Text(3, TitleAndName, 68, 151, 10),
    Picture(3, Signature, 68, 157, 45, 9),
    Boxes(3, Today, 68, 174, 10, 7, kDateBoxes),
};

}  // namespace

const std::span<const FormPlace> kFormA202404 = kA;
const std::span<const FormPlace> kFormB202404 = kB;
const std::span<const FormPlace> kFormSolo202404 = kSolo;

}  // namespace lm
