#include "VantrelDateTime.h"

#include <cstdlib>
#include <ctime>
#include <limits>

#include "Testing.h"
#include "VantrelVariant.h"

TEST(DateTime, TextsOfBothDirectionsMeet) {
  const std::pair<double, const char*> cases[] = {
      {0, "1899-12-30T00:00:00.000Z"},       {1, "1899-12-31T00:00:00.000Z"},
      {-1.25, "1899-12-29T06:00:00.000Z"},   {39571.75, "2008-05-03T18:00:00.000Z"},
      {36585, "2000-02-29T00:00:00.000Z"},   {45292.0 + 3723004 / 86400000.0, "2024-01-01T01:02:03.004Z"},
      {-693593, "0001-01-01T00:00:00.000Z"}, {2958465.0 + 86399999 / 86400000.0, "9999-12-31T23:59:59.999Z"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(DateTimeToText(value), text);
    EXPECT_EQ(TextToDateTime(text), value) << text;
    EXPECT_EQ(DateToText(value), std::string(text, 10));
    EXPECT_EQ(TimeToText(value), text + 11);
  }
}

TEST(DateTime, IsRoundedToTheMillisecondAndTellsTheDay) {
  EXPECT_EQ(DateTimeToText(39570.99999999999), "2008-05-03T00:00:00.000Z");
  EXPECT_EQ(DateToGermanText(39571.75), "03.05.2008");
  EXPECT_EQ(DateTimeToGermanText(39571.75), "03.05.2008 18:00:00");
  EXPECT_EQ(TimeToShortText(39571.75), "18:00:00");
  EXPECT_EQ(DayOfWeek(39571.75), TVantrelDayOfWeek::Saturday);
  EXPECT_EQ(DayOfWeek(-6.5), TVantrelDayOfWeek::Sunday);
}

TEST(DateTime, WhatIsNoDateIsRefused) {
  for (const double value : {-693594.0, 2958466.0, 2958465.9999999999, 1e300, -1e300,
                             std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(DateToText(value), EVantrelDateTimeError) << value;
    EXPECT_FALSE(IsDateTime(value)) << value;
    for (const auto& text : {DateToGermanText(value), DateTimeToGermanText(value), TVariant::DateTime(value).AsText()})
      EXPECT_EQ(text, "ungültiges Datum") << value;
  }
  const TDateTimeParts wrong[] = {{0, 1, 1},        {10000, 1, 1},       {2023, 2, 29},         {2023, 13, 1},
                                  {2023, 257, 1},   {2023, 1, 257},      {2023, 1, 0},          {2023, 1, 1, 24},
                                  {2023, 1, 1, -1}, {2023, 1, 1, 0, 60}, {2023, 1, 1, 0, 0, 60}};
  for (const auto& parts : wrong) EXPECT_THROW(EncodeDateTime(parts), EVantrelDateTimeError) << parts.Month;
}

TEST(DateTime, ShorterAndOddTextsAreReadByPosition) {
  const std::pair<const char*, const char*> cases[] = {{"2008", "2008-01-01T00:00:00.000Z"},
                                                       {"2008-05", "2008-05-01T00:00:00.000Z"},
                                                       {"2008-5", "2008-05-01T00:00:00.000Z"},
                                                       {"2008-05-03", "2008-05-03T00:00:00.000Z"},
                                                       {"2008-05-03T18:30", "2008-05-03T18:30:00.000Z"},
                                                       {"2008/05/03 18.30.xx", "2008-05-03T18:30:00.000Z"},
                                                       {"2008-05-03T18:30:15", "2008-05-03T18:30:15.000Z"},
                                                       {"2008-05-03T18:30:15.25+02:00", "2008-05-03T18:30:15.025Z"},
                                                       {"2008-05-03T18:30:15.250-02:00", "2008-05-03T18:30:15.250Z"},
                                                       {"2008-05-03T18:30:15.7", "2008-05-03T18:30:15.007Z"},
                                                       {"2008-05-03T18:30:15.xZ", "2008-05-03T18:30:15.000Z"}};
  for (const auto& [text, read] : cases) EXPECT_EQ(DateTimeToText(TextToDateTime(text)), read) << text;
  EXPECT_EQ(TextToDateTime("0000-00-00T00:00:00.000Z"), 0);
  for (const char* text : {"", "abcd", "2008-", "2008-5-03", "2008-05-0", "2008-05-03T1", "2008-05-03T18:3x",
                           "2008-13-01", "2008-02-30", "0000-01-01", "12:30:00.000Z", "2008-05-03T18:30:15.1234Z"})
    EXPECT_THROW(TextToDateTime(text), EVantrelDateTimeError) << text;
}

TEST(DateTime, OffsetIsThatOfTheTimeZoneThen) {
  const std::tuple<const char*, double, const char*> cases[] = {
      {"CET-1CEST,M3.5.0,M10.5.0/3", 39571.75, "2008-05-03T18:00:00.000+02:00"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", 39814.75, "2009-01-01T18:00:00.000+01:00"},
      {"NST3:30", 39571.75, "2008-05-03T18:00:00.000-03:30"},
      {"UTC0", 39571.75, "2008-05-03T18:00:00.000+00:00"}};
  for (const auto& [zone, value, text] : cases) {
    setenv("TZ", zone, 1);
    tzset();
    EXPECT_EQ(DateTimeToOffsetText(value), text);
    EXPECT_EQ(TimeToOffsetText(value), text + 11);
  }
  unsetenv("TZ");
  tzset();
}