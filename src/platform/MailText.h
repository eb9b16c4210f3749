#pragma once

#include "platform/Mail.h"
#include "values/DateTime.h"

#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// The addresses of a recipient text, split at `;` and `,`, blanks trimmed, empty ones left out.
/// Throws MailError when one is no mail address or when there is none.
std::vector<std::string> MailRecipients(std::string_view to);

/// `address` without the blanks around it. Throws MailError when it is no plain ASCII mail address; so no line break
/// and no bracket in it can reach a header or the server.
std::string MailAddress(std::string_view address);

/// A text as the value of a header: line breaks and other control characters become blanks, and a text beyond plain
/// ASCII becomes encoded words of at most 75 characters, folded onto lines of their own.
std::string MailHeaderText(std::string_view text);

/// A text in quoted-printable: lines of at most 76 characters, CR LF between them, whatever breaks the text had.
std::string QuotedPrintable(std::string_view text);

/// The whole mail as it goes over the wire, headers and body, with CR LF line ends.
/// `sentAt` is in universal time; `messageId` stands between the brackets of Message-ID. Throws MailError.
std::string MailText(const MailMessage& message, DateTime sentAt, const std::string& messageId);

}
