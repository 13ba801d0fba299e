// Text files of older Windows copies: which files are read as Windows-1252,
// and their bytes kept when the text is written back.
#include <gtest/gtest.h>

#include "base/TextFile.h"

using namespace kal;

TEST(TextEncoding, EveryWindows1252ByteComesBackUnchanged) {
    std::string all;
    for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
    DecodedText d = DecodeText(all);
    ASSERT_EQ(d.encoding, TextEncoding::Windows1252);
    EXPECT_TRUE(IsUtf8(d.text));
    EXPECT_EQ(EncodeText(d.text, TextEncoding::Windows1252), all);

    // The letters an older copy wrote, as the program shows them.
    EXPECT_EQ(DecodeText("Jos\xe9 M\xfcller").text, "José Müller");
    EXPECT_EQ(DecodeText("S\xe3o Paulo \x80").text, "São Paulo €");
    // A code Windows-1252 leaves free stands for the control of its number.
    EXPECT_EQ(DecodeText("\x81").text, "\xc2\x81");
}

TEST(TextEncoding, OnlyWellFormedUtf8IsReadAsUtf8) {
    EXPECT_EQ(DecodeText("José Müller €").encoding, TextEncoding::Utf8);
    EXPECT_EQ(DecodeText("plain ascii").encoding, TextEncoding::Utf8);
    EXPECT_EQ(DecodeText("\xf0\x9f\x9c\x81").encoding, TextEncoding::Utf8); // beyond 16 bits
    // Overlong forms, surrogates, cut sequences and stray continuation bytes.
    for (const char* bad : {"\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80",
                            "ab\xc3", "\xe2\x82", "\x9c", "M\xfcller\r\n"}) {
        SCOPED_TRACE(bad);
        EXPECT_FALSE(IsUtf8(bad));
        DecodedText d = DecodeText(bad);
        EXPECT_EQ(d.encoding, TextEncoding::Windows1252);
        EXPECT_EQ(EncodeText(d.text, TextEncoding::Windows1252), std::string(bad));
    }
}

TEST(TextEncoding, TextWindows1252CannotHoldIsWrittenAsUtf8) {
    EXPECT_EQ(EncodeText("Łódź", TextEncoding::Windows1252), std::nullopt);
    EXPECT_EQ(EncodeText("\xff", TextEncoding::Windows1252), std::nullopt); // not UTF-8 itself
    TextEncoding used = TextEncoding::Windows1252;
    EXPECT_EQ(EncodeTextOrUtf8("Łódź", TextEncoding::Windows1252, &used), "Łódź");
    EXPECT_EQ(used, TextEncoding::Utf8);
    EXPECT_EQ(EncodeTextOrUtf8("Zoë €", TextEncoding::Windows1252, &used), "Zo\xeb \x80");
    EXPECT_EQ(used, TextEncoding::Windows1252);
    EXPECT_EQ(EncodeTextOrUtf8("Zoë", TextEncoding::Utf8), "Zoë");
}
