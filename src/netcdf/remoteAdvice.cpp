#include "netcdf/remoteAdvice.h"

#include <netcdf.h>

#include <cmath>
#include <string_view>

#include "netcdf/NetCDF.h"
#include "platform/texts.h"

namespace ocxNetNc {
namespace {

// The transport's codes (of libcurl) that a person can tell apart.
constexpr int kUnknownProtocol = 1;
constexpr int kBadAddress = 3;
constexpr int kUnknownProxy = 5;
constexpr int kUnknownHost = 6;
constexpr int kNoConnection = 7;
constexpr int kTimeOut = 28;
constexpr int kNoSecureConnection = 35;
constexpr int kTooManyRedirections = 47;
constexpr int kUntrustedServer = 60;

std::string hostOf(const NCDAPreport& report) {
  const std::string host = platform::textToUtf8(report.host);
  return host.empty() ? "the server" : host;
}

// " (text)", or nothing without a text.
std::string inParentheses(const char* text) {
  return *text == '\0' ? std::string() : " (" + platform::textToUtf8(text) + ")";
}

// ": 'text'", or nothing without a text.
std::string quoted(const char* text) {
  return *text == '\0' ? std::string() : ": '" + platform::textToUtf8(text) + "'";
}

std::string secondsText(double seconds) {
  const long long whole = std::llround(seconds);
  return std::to_string(whole) + (whole == 1 ? " second" : " seconds");
}

// "12 of 345 bytes", or what came when nobody knows how much there is.
std::string bytesText(const NCDAPreport& report) {
  std::string text = std::to_string(report.bytes_got);
  if (report.bytes_expected >= 0) text += " of " + std::to_string(report.bytes_expected);
  return text + " bytes";
}

std::string timeOutText(const NCDAPreport& report) {
  const std::string after = " after " + secondsText(report.seconds);
  if (report.bytes_got == 0) {
    return "no answer from " + hostOf(report) + after +
           ". It may be busy or stuck: try again later, or ask for less.";
  }
  return "the answer of " + hostOf(report) + " was not there" + after + ", only " +
         bytesText(report) + ". Try again later, or ask for less.";
}

std::string transferText(const NCDAPreport& report) {
  const std::string why = inParentheses(report.curl_text);
  switch (report.curl_code) {
    case kUnknownProtocol:
    case kBadAddress:
      return "this address, or one that " + hostOf(report) + " redirects to, is none of the web" +
             why + ".";
    case kUnknownProxy:
      return "the proxy is unknown" + why + ". Is it set correctly?";
    case kUnknownHost:
      return "no server of the name " + hostOf(report) + why +
             ". Is the address right, and is there a network?";
    case kNoConnection:
      return "no connection to " + hostOf(report) + why + ". Is the server running?";
    case kTimeOut:
      return timeOutText(report);
    case kTooManyRedirections:
      return hostOf(report) + " answers with one redirect after another" + why +
             ". Is the address right?";
    case kNoSecureConnection:
    case kUntrustedServer:
      return "no secure connection to " + hostOf(report) + why + ".";
    default:
      return "the connection to " + hostOf(report) + " broke" + why + ". Try again.";
  }
}

std::string statusText(const NCDAPreport& report) {
  const std::string answer =
      " (HTTP status " + std::to_string(report.http_code) + ")" + quoted(report.words) + ". ";
  switch (report.http_code) {
    case 401:
      return hostOf(report) + " refused" + answer + "It wants a user name and a password.";
    case 403:
    case 413:
      return hostOf(report) + " refused" + answer +
             "The request is too large, or there is no permission.";
    case 404:
    case 410:
      return hostOf(report) + " has no such data set" + answer + "Is the address right?";
    default:
      break;
  }
  if (report.http_code >= 500) return hostOf(report) + " failed" + answer + "Try again later.";
  return hostOf(report) + " refused" + answer + "Is the address right?";
}

std::string pageText(const NCDAPreport& report) {
  if (*report.words == '\0') return hostOf(report) + " answered with nothing. Try again.";
  return hostOf(report) + " answered with a page, not with data" + quoted(report.words) +
         ". Is it an OPeNDAP address, and does it want a login?";
}

std::string causeText(const NCDAPreport& report) {
  switch (report.cause) {
    case NCDAP_TRANSFER:
      return transferText(report);
    case NCDAP_STATUS:
      return statusText(report);
    case NCDAP_ERROR:
      return hostOf(report) + " answered with an error" + quoted(report.words) + ".";
    case NCDAP_NOT_DAP:
      return pageText(report);
    case NCDAP_CUT:
      return "the answer of " + hostOf(report) + " ended too early, after " + bytesText(report) +
             ". Try again.";
    case NCDAP_TOO_LARGE:
      return "the answer of " + hostOf(report) +
             " is larger than what was asked for can be; it was not taken.";
    case NCDAP_CHANGED:
      return "the data set at " + hostOf(report) +
             " is not what it was when it was opened. Open it again.";
    case NCDAP_MEMORY:
      return "there is not enough memory for the answer of " + hostOf(report) +
             ". Draw a shorter path.";
    default:
      return "the answer of " + hostOf(report) +
             " is incomplete or contradicts itself. Try again; if it stays so, tell who runs the "
             "server.";
  }
}

}  // namespace

std::string remoteAdvice(int32_t status) {
  const std::string begin = "Status " + std::to_string(status) + ": ";
  if (status == NC_ENOTBUILT) {  // asked of nobody: what is reported is of another request
    return begin + "of a server only OPeNDAP (DAP 2) data sets can be read, not DAP 4 or others.";
  }
  const NCDAPreport* report = NetCDF::library.ncdap_report();
  if (report == nullptr || report->kind == 0) {
    return begin + (status == NC_EDAS
                        ? "the server sent no attributes, so that no variable has a unit."
                        : "the data set at this address cannot be used.");
  }
  std::string text = begin + causeText(*report);
  if (report->kind == NCDAP_DAS) text += " Without the attributes values have no meaning.";
  return text;
}

}  // namespace ocxNetNc
