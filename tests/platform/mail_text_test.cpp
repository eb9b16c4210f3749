#include "platform/MailText.h"

#include <doctest/doctest.h>

using namespace rovanta;

TEST_CASE("The whole mail as it goes over the wire")
{
    const MailMessage message{"Larkfield \"Q\"", "office@larkfield.example", "a@b.example;c@d.example", "Hello",
                              "One\nTwo"};
    CHECK(MailText(message, DateTime::Of(2026, 11, 5, 9, 3, 7), "id@larkfield.example") ==
          "Date: Thu, 05 Nov 2026 09:03:07 +0000\r\n"
          "From: \"Larkfield \\\"Q\\\"\" <office@larkfield.example>\r\n"
          "To: a@b.example,\r\n c@d.example\r\n"
          "Subject: Hello\r\n"
          "Message-ID: <id@larkfield.example>\r\n"
          "MIME-Version: 1.0\r\n"
          "Content-Type: text/plain; charset=UTF-8\r\n"
          "Content-Transfer-Encoding: quoted-printable\r\n"
          "\r\n"
          "One\r\nTwo\r\n");
}

TEST_CASE("A sender without a name is the address alone")
{
    const MailMessage message{"  ", "office@larkfield.example", "a@b.example", "", ""};
    const std::string mail = MailText(message, DateTime::Of(2026, 1, 1), "id");
    CHECK(mail.find("\r\nFrom: office@larkfield.example\r\n") != std::string::npos);
}

TEST_CASE("Header texts are plain, or encoded words that any reader takes")
{
    CHECK(MailHeaderText("Tour drop 5") == "Tour drop 5");
    CHECK(MailHeaderText("a\r\nb\nc\td") == "a b c d");
    CHECK(MailHeaderText("\xC3\xA9") == "=?UTF-8?B?w6k=?=");
    CHECK(MailHeaderText("=?x") == "=?UTF-8?B?PT94?=");
    CHECK(MailHeaderText("\xFF") == "=?UTF-8?B?77+9?=");
    CHECK(MailHeaderText("") == "");
}

TEST_CASE("Encoded words stay below 76 characters and cut no character")
{
    std::string text = "x";
    for (int i = 0; i < 100; ++i)
        text += "\xE2\x82\xAC";
    const std::string header = MailHeaderText(text);
    std::size_t start = 0;
    int words = 0;
    while (start < header.size()) {
        const std::size_t end = std::min(header.find("\r\n ", start), header.size());
        const std::string word = header.substr(start, end - start);
        CHECK(word.size() <= 75);
        CHECK(word.starts_with("=?UTF-8?B?"));
        CHECK(word.ends_with("?="));
        start = end + 3;
        ++words;
    }
    CHECK(words == 7);
    // 1 + 14 signs of three bytes are 43 bytes: the fifteenth sign would have been cut at 45.
    CHECK(header.substr(0, header.find("\r\n")).size() == 12 + 60);
}

TEST_CASE("A long plain header is encoded, so that no line grows beyond what servers take")
{
    CHECK(MailHeaderText(std::string(900, 'a')) == std::string(900, 'a'));
    CHECK(MailHeaderText(std::string(901, 'a')).starts_with("=?UTF-8?B?YWFh"));
}

TEST_CASE("Quoted-printable")
{
    struct Row {
        std::string text;
        std::string expected;
    };
    const Row rows[] = {
        {"", ""},
        {"plain", "plain"},
        {"a=b", "a=3Db"},
        {"caf\xC3\xA9", "caf=C3=A9"},
        {"a\tb", "a\tb"},
        {"blank \nend\t", "blank=20\r\nend=09"},
        {"a\r\nb\nc\rd", "a\r\nb\r\nc\r\nd"},
        {"\n\n", "\r\n\r\n"},
        {std::string("a\0b", 3), "a=00b"},
        {"\x7F\x1B", "=7F=1B"},
        {std::string(75, 'x'), std::string(75, 'x')},
        {std::string(77, 'x'), std::string(75, 'x') + "=\r\nxx"},
        {std::string(74, 'x') + "=", std::string(74, 'x') + "=\r\n=3D"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(QuotedPrintable(row.text) == row.expected);
    }
}

TEST_CASE("Recipients are split, trimmed and tested")
{
    CHECK(MailRecipients("a@b.example") == std::vector<std::string>{"a@b.example"});
    CHECK(MailRecipients(" a@b ;c@d, ,e@f;") == std::vector<std::string>{"a@b", "c@d", "e@f"});
    CHECK_THROWS_WITH_AS(MailRecipients(""), "The mail has no recipient.", MailError);
    CHECK_THROWS_WITH_AS(MailRecipients("a@b;bob"), "'bob' is no mail address.", MailError);
    CHECK_THROWS_WITH_AS(MailAddress("a@b\r\nBcc: x@y"), "'a@b Bcc: x@y' is no mail address.", MailError);
}
