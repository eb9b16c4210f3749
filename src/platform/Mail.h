#pragma once

#include "values/Errors.h"

#include <memory>
#include <string>

namespace rovanta {

/// A plain text mail. `to` may name several recipients with `;` or `,` between them.
struct MailMessage {
    std::string fromName;
    std::string fromAddress;
    std::string to;
    std::string subject;
    std::string body;
};

/// Where mail goes out: `server` is a host, or a host with a port after a colon (25 without one).
/// An empty user means no login.
struct MailServer {
    std::string server;
    std::string user;
    std::string password;
};

/// Why a mail was not taken, in the server's words where there are any.
class MailError : public RunTimeError {
public:
    using RunTimeError::RunTimeError;
};

/// A way to deliver mail.
class MailTransport {
public:
    virtual ~MailTransport() = default;
    /// Returns when the server has taken the mail for all recipients; throws MailError otherwise.
    virtual void Send(const MailMessage& message, const MailServer& server) = 0;
};

/// The transport that speaks SMTP.
std::unique_ptr<MailTransport> MakeSmtpTransport();

}
