#include "VantrelGuid.h"

#include "Testing.h"

constexpr const char* SampleText = "{00112233-4455-6677-8899-AABBCCDDEEFF}";
const TGuid Sample{{0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}};

TEST(Guid, TextFormsFollowTheByteOrderOfFiles) {
  EXPECT_EQ(GuidToText(Sample), SampleText);
  EXPECT_EQ(GuidToText(Sample, TVantrelGuidFormat::gfWithoutBrackets), "00112233-4455-6677-8899-aabbccddeeff");
  EXPECT_EQ(GuidToText(Sample, TVantrelGuidFormat::gfQuoted), "'{00112233-4455-6677-8899-AABBCCDDEEFF}'");
  EXPECT_EQ(TextToGuid(SampleText), Sample);
  EXPECT_EQ(TextToGuid("{00112233-4455-6677-8899-aabbccddeeff}"), Sample);
}

TEST(Guid, OtherTextsAreRefused) {
  for (const char* text : {"", "{}", "00112233-4455-6677-8899-AABBCCDDEEFF", "{00112233-4455-6677-8899-AABBCCDDEEF}",
                           "{00112233-4455-6677-8899-AABBCCDDEEFG}", "{0011223304455-6677-8899-AABBCCDDEEFF}",
                           "{00112233-4455-6677-8899-AABBCCDDEEFF} ", "(00112233-4455-6677-8899-AABBCCDDEEFF)",
                           "{ 0112233-4455-6677-8899-AABBCCDDEEFF}"}) {
    EXPECT_THROW(TextToGuid(text), EConvertError) << text;
  }
}

TEST(Guid, NewOnesDifferAndAreRandomKind) {
  const std::string text = GuidToText(NewGuid());
  EXPECT_EQ(text[15], '4');
  EXPECT_NE(std::string("89AB").find(text[20]), std::string::npos) << text;
  EXPECT_NE(NewGuid(), NewGuid());
}

TEST(Guid, NameBasedOnesAreTheKnownOnes) {
  const auto text = [](int version) {
    return GuidToText(NameBasedGuid(GuidNamespaceDns(), "python.org", version), TVantrelGuidFormat::gfWithoutBrackets);
  };
  EXPECT_EQ(text(3), "6fa459ea-ee8a-3ca4-894e-db77e160355e");
  EXPECT_EQ(text(5), "886313e1-3b8a-5372-9b90-0c9aee199e5d");
  EXPECT_NE(NameBasedGuid(GuidNamespaceOid(), "python.org", 5), NameBasedGuid(GuidNamespaceDns(), "python.org", 5));
  EXPECT_THROW(text(4), EArgumentOutOfRangeException);
}