#include "platform/Mail.h"

#include "support/LoopbackMailServer.h"

#include <doctest/doctest.h>

#include <chrono>
#include <sys/socket.h>

using namespace rovanta;
using rovanta::tests::LoopbackMailServer;

namespace {

MailMessage Message()
{
    return {"Larkfield Production", "office@larkfield.example", "crew@tour.example", "Tour drop",
            "The coach leaves at 9.\r\nBring the papers."};
}

void Send(const MailMessage& message, const MailServer& server)
{
    MakeSmtpTransport()->Send(message, server);
}

/// The text of the failure, or nothing when the mail went out.
std::string Failure(const MailMessage& message, const MailServer& server)
{
    try {
        Send(message, server);
    } catch (const MailError& error) {
        return error.what();
    }
    return {};
}

bool Contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

std::string HeadersOf(const std::string& mail)
{
    return mail.substr(0, mail.find("\r\n\r\n") + 2);
}

}

TEST_CASE("A mail arrives with its headers and its body")
{
    const LoopbackMailServer server;
    Send(Message(), {server.Address(), "", ""});
    REQUIRE(server.Count() == 1);
    CHECK(server.Envelope(1) == R"({"from": "office@larkfield.example", "to": ["crew@tour.example"], "login": ""})");
    const std::string mail = server.Mail(1);
    const std::string headers = HeadersOf(mail);
    CHECK(Contains(headers, "From: \"Larkfield Production\" <office@larkfield.example>\r\n"));
    CHECK(Contains(headers, "\r\nTo: crew@tour.example\r\n"));
    CHECK(Contains(headers, "\r\nSubject: Tour drop\r\n"));
    CHECK(Contains(headers, "\r\nMIME-Version: 1.0\r\n"));
    CHECK(Contains(headers, "\r\nContent-Type: text/plain; charset=UTF-8\r\n"));
    CHECK(Contains(headers, "@larkfield.example>\r\nMIME"));
    CHECK(headers.starts_with("Date: "));
    CHECK(mail.substr(mail.find("\r\n\r\n")) == "\r\n\r\nThe coach leaves at 9.\r\nBring the papers.\r\n");
}

TEST_CASE("Every recipient of the list gets the mail")
{
    const LoopbackMailServer server;
    MailMessage message = Message();
    message.to = "a@tour.example; b@tour.example,c@tour.example;";
    Send(message, {server.Address(), "", ""});
    CHECK(Contains(server.Envelope(1), R"("to": ["a@tour.example", "b@tour.example", "c@tour.example"])"));
    CHECK(Contains(server.Mail(1), "To: a@tour.example,\r\n b@tour.example,\r\n c@tour.example\r\n"));
}

TEST_CASE("Each mail has an id of its own")
{
    const LoopbackMailServer server;
    Send(Message(), {server.Address(), "", ""});
    Send(Message(), {server.Address(), "", ""});
    REQUIRE(server.Count() == 2);
    const auto id = [&](int number) {
        const std::string mail = server.Mail(number);
        const std::size_t start = mail.find("Message-ID: <");
        return mail.substr(start, mail.find(">\r\n", start) - start);
    };
    CHECK(id(1).size() > 40);
    CHECK(id(1) != id(2));
}

TEST_CASE("Names, subjects and bodies beyond ASCII travel encoded")
{
    const LoopbackMailServer server;
    MailMessage message = Message();
    message.fromName = "Büro Lärkfeld";
    message.subject = "Größe";
    message.body = "Fünf Busse = 5";
    Send(message, {server.Address(), "", ""});
    const std::string mail = server.Mail(1);
    CHECK(Contains(mail, "From: =?UTF-8?B?QsO8cm8gTMOkcmtmZWxk?= <office@larkfield.example>\r\n"));
    CHECK(Contains(mail, "Subject: =?UTF-8?B?R3LDtsOfZQ==?=\r\n"));
    CHECK(Contains(mail, "F=C3=BCnf Busse =3D 5\r\n"));
}

TEST_CASE("A line of one dot does not end the mail")
{
    const LoopbackMailServer server;
    MailMessage message = Message();
    message.body = "before\r\n.\r\n..\r\nafter";
    Send(message, {server.Address(), "", ""});
    CHECK(Contains(server.Mail(1), "\r\n\r\nbefore\r\n.\r\n..\r\nafter\r\n"));
}

TEST_CASE("A long body arrives whole")
{
    const LoopbackMailServer server;
    MailMessage message = Message();
    message.body.clear();
    for (int line = 0; line < 20000; ++line)
        message.body += "line " + std::to_string(line) + "\n";
    Send(message, {server.Address(), "", ""});
    CHECK(Contains(server.Mail(1), "\r\nline 0\r\nline 1\r\n"));
    CHECK(Contains(server.Mail(1), "\r\nline 19999\r\n"));
}

TEST_CASE("A line break in a name or a subject adds no header")
{
    const LoopbackMailServer server;
    MailMessage message = Message();
    message.fromName = "Office\r\nBcc: spy@evil.example";
    message.subject = "Hello\r\nX-Evil: 1\n\nbody of another";
    Send(message, {server.Address(), "", ""});
    const std::string headers = HeadersOf(server.Mail(1));
    CHECK_FALSE(Contains(headers, "\nBcc:"));
    CHECK_FALSE(Contains(headers, "\nX-Evil:"));
    CHECK(Contains(headers, "Subject: Hello X-Evil: 1  body of another\r\n"));
    CHECK(Contains(headers, "From: \"Office Bcc: spy@evil.example\" <office@larkfield.example>\r\n"));
    CHECK(Contains(server.Envelope(1), R"("to": ["crew@tour.example"])"));
}

TEST_CASE("An address that is none is refused before the server is called")
{
    const LoopbackMailServer server;
    for (const char* address :
         {"crew", "@tour.example", "crew@", "a@b@c.example", "crew@tour.example\r\nRCPT TO:<spy@evil.example>",
          "crew @tour.example", "<crew@tour.example>", "crew@tour.example>", "crêw@tour.example"}) {
        CAPTURE(address);
        MailMessage message = Message();
        message.to = address;
        CHECK(Contains(Failure(message, {server.Address(), "", ""}), "is no mail address."));
        message = Message();
        message.fromAddress = address;
        CHECK(Contains(Failure(message, {server.Address(), "", ""}), "is no mail address."));
    }
    MailMessage message = Message();
    message.to = " ; , ";
    CHECK(Failure(message, {server.Address(), "", ""}) == "The mail has no recipient.");
    CHECK(server.Count() == 0);
}

TEST_CASE("A login is given where there is one")
{
    const LoopbackMailServer server({"--login", "office:coach word"});
    Send(Message(), {server.Address(), "office", "coach word"});
    REQUIRE(server.Count() == 1);
    CHECK(Contains(server.Envelope(1), R"("login": "office")"));
}

TEST_CASE("A wrong login and a missing one are refused")
{
    const LoopbackMailServer server({"--login", "office:coach word"});
    const std::string refusal = Failure(Message(), {server.Address(), "office", "wrong"});
    CHECK(refusal.starts_with("The mail server " + server.Address() + " refused the login: 535"));
    const std::string missing = Failure(Message(), {server.Address(), "", ""});
    CHECK(missing.starts_with("The mail server " + server.Address() + " refused the mail: 530"));
    CHECK(server.Count() == 0);
}

TEST_CASE("One refused recipient fails the mail for all")
{
    const LoopbackMailServer server({"--refuse", "gone@tour.example"});
    MailMessage message = Message();
    message.to = "crew@tour.example, gone@tour.example";
    CHECK(Failure(message, {server.Address(), "", ""}) ==
          "The mail server " + server.Address() + " refused the mail: 550 No mailbox gone@tour.example here");
    CHECK(server.Count() == 0);
}

TEST_CASE("No server, an unknown one and a name that is none get their text")
{
    LoopbackMailServer server;
    server.Stop();
    CHECK(Failure(Message(), {server.Address(), "", ""}) ==
          "The mail server " + server.Address() + " cannot be reached.");
    CHECK(Failure(Message(), {"no-such-host.invalid", "", ""}) ==
          "The mail server no-such-host.invalid:25 is not known.");
    CHECK(Failure(Message(), {"", "", ""}) == "There is no mail server in the company's settings.");
    for (const char* name : {"127.0.0.1:", "127.0.0.1:0", "127.0.0.1:65536", "127.0.0.1:25x", ":25", "host/path",
                             "user@host", "http://host", "host:25:26", "a b", "[::1", "host\r\nQUIT"}) {
        CAPTURE(name);
        CHECK(Contains(Failure(Message(), {name, "", ""}), "is no mail server;"));
    }
}

TEST_CASE("A failed mail leaves the transport ready for the next")
{
    const LoopbackMailServer server;
    const auto transport = MakeSmtpTransport();
    CHECK_THROWS_AS(transport->Send(Message(), {"", "", ""}), MailError);
    transport->Send(Message(), {server.Address(), "", ""});
    CHECK(server.Count() == 1);
}
