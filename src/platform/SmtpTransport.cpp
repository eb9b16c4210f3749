#include "platform/Mail.h"
#include "platform/MailText.h"
#include "values/Text.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <random>

namespace rovanta {

namespace {

constexpr long connectSeconds = 10;
constexpr long wholeSeconds = 30;

/// The server as libcurl takes it. Only what a host and a port are made of goes through, so that no text of the company
/// row can name another protocol, a path or a user.
std::string ServerAddress(const std::string& server)
{
    const std::string trimmed = Trim(server);
    if (trimmed.empty())
        throw MailError("There is no mail server in the company's settings.");
    const std::size_t bracket = trimmed.rfind(']');
    const std::size_t colon = trimmed.find(':', bracket == std::string::npos ? 0 : bracket);
    const std::string host = trimmed.substr(0, colon);
    const std::string portText = colon == std::string::npos ? "25" : trimmed.substr(colon + 1);
    int port = 0;
    const auto [end, error] = std::from_chars(portText.data(), portText.data() + portText.size(), port);
    const bool portOk = error == std::errc{} && end == portText.data() + portText.size() && port > 0 && port < 65536;
    const bool numeric = host.size() > 2 && host.front() == '[' && bracket == host.size() - 1;
    const std::string_view name = numeric ? std::string_view(host).substr(1, host.size() - 2) : std::string_view(host);
    const bool nameOk = !name.empty() && std::all_of(name.begin(), name.end(), [&](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '-' ||
               c == '_' || (numeric && c == ':');
    });
    if (!portOk || !nameOk)
        throw MailError("'" + trimmed + "' is no mail server; it takes a host, or a host and a port after a colon.");
    return host + ":" + std::to_string(port);
}

DateTime UniversalTime()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return DateTime::FromSeconds(std::chrono::duration_cast<std::chrono::seconds>(now).count());
}

/// An id that no other mail bears: 128 random bits at the sender's domain.
std::string NewMessageId(const std::string& fromAddress)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::random_device random;
    std::string id;
    for (int i = 0; i < 32; ++i)
        id += digits[random() & 15];
    return id + fromAddress.substr(fromAddress.find('@'));
}

/// What libcurl reads the mail from, and where it puts what the server says.
struct Exchange {
    std::string mail;
    std::size_t sent = 0;
    /// The last answer that refused something; the farewell behind it does not count.
    std::string refusal;
};

std::size_t ReadMail(char* buffer, std::size_t size, std::size_t count, void* data)
{
    auto& exchange = *static_cast<Exchange*>(data);
    const std::size_t length = std::min(size * count, exchange.mail.size() - exchange.sent);
    std::copy_n(exchange.mail.data() + exchange.sent, length, buffer);
    exchange.sent += length;
    return length;
}

std::size_t KeepRefusal(char* buffer, std::size_t size, std::size_t count, void* data)
{
    std::string answer(buffer, size * count);
    answer.erase(answer.find_last_not_of("\r\n") + 1);
    if (answer.starts_with('4') || answer.starts_with('5'))
        static_cast<Exchange*>(data)->refusal = ValidUtf8(answer);
    return size * count;
}

std::string FailureText(CURLcode code, const std::string& server, const std::string& refusal, const char* details)
{
    const std::string head = "The mail server " + server + " ";
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
        return head + "is not known.";
    case CURLE_COULDNT_CONNECT:
        return head + "cannot be reached.";
    case CURLE_OPERATION_TIMEDOUT:
        return head + "does not answer.";
    case CURLE_LOGIN_DENIED:
        return head + "refused the login: " + refusal;
    case CURLE_SEND_ERROR:
    case CURLE_WEIRD_SERVER_REPLY:
        return head + "refused the mail: " + (refusal.empty() ? details : refusal);
    default:
        return head + "did not take the mail: " + (*details != '\0' ? details : curl_easy_strerror(code));
    }
}

class SmtpTransport : public MailTransport {
public:
    void Send(const MailMessage& message, const MailServer& server) override;
};

void SmtpTransport::Send(const MailMessage& message, const MailServer& server)
{
    const std::string address = ServerAddress(server.server);
    const std::string sender = MailAddress(message.fromAddress);
    Exchange exchange{MailText(message, UniversalTime(), NewMessageId(sender)), 0, {}};
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> recipients{nullptr, curl_slist_free_all};
    for (const std::string& recipient : MailRecipients(message.to))
        recipients.reset(curl_slist_append(recipients.release(), ("<" + recipient + ">").c_str()));

    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl{curl_easy_init(), curl_easy_cleanup};
    if (started != CURLE_OK || !curl)
        throw MailError("Mail cannot be sent: libcurl does not start.");
    std::array<char, CURL_ERROR_SIZE> details{};
    const auto set = [&](CURLoption option, auto value) { curl_easy_setopt(curl.get(), option, value); };
    set(CURLOPT_ERRORBUFFER, details.data());
    set(CURLOPT_URL, ("smtp://" + address).c_str());
    set(CURLOPT_PROTOCOLS_STR, "smtp");
    set(CURLOPT_PROXY, "");
    set(CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_NONE));
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_CONNECTTIMEOUT, connectSeconds);
    set(CURLOPT_TIMEOUT, wholeSeconds);
    if (!server.user.empty()) {
        set(CURLOPT_USERNAME, server.user.c_str());
        set(CURLOPT_PASSWORD, server.password.c_str());
    }
    set(CURLOPT_MAIL_FROM, ("<" + sender + ">").c_str());
    set(CURLOPT_MAIL_RCPT, recipients.get());
    set(CURLOPT_READFUNCTION, ReadMail);
    set(CURLOPT_READDATA, &exchange);
    set(CURLOPT_HEADERFUNCTION, KeepRefusal);
    set(CURLOPT_HEADERDATA, &exchange);
    set(CURLOPT_UPLOAD, 1L);

    const CURLcode code = curl_easy_perform(curl.get());
    if (code != CURLE_OK)
        throw MailError(FailureText(code, address, exchange.refusal, details.data()));
}

}

std::unique_ptr<MailTransport> MakeSmtpTransport()
{
    return std::make_unique<SmtpTransport>();
}

}
