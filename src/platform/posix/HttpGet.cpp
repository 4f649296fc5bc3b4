#include "platform/posix/HttpGet.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstdint>
#include <string>
#include <utility>

#include "platform/posix/CurlLibrary.h"
#include "platform/posix/NativePath.h"

namespace {

// Bytes received in addition to the body: headers, chunk framing, encryption.
constexpr std::uint64_t kMostFraming = 1'048'576;

HttpFault faultOf(CURLcode result) {
    switch (result) {
        case CURLE_COULDNT_RESOLVE_HOST:
            return HttpFault::HostNotFound;
        case CURLE_COULDNT_CONNECT:
            return HttpFault::NotConnected;
        case CURLE_OPERATION_TIMEDOUT:
            return HttpFault::TimedOut;
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CACERT_BADFILE:
            return HttpFault::NotSecure;
        case CURLE_WRITE_ERROR:  // by takeHeader or takeBody
            return HttpFault::TooLong;
        case CURLE_PARTIAL_FILE:
        case CURLE_GOT_NOTHING:
        case CURLE_RECV_ERROR:
            return HttpFault::Incomplete;
        default:
            return HttpFault::Other;
    }
}

class Exchange {
public:
    Exchange(const CurlLibrary& curl, const HttpLimits& limits)
        : curl_(curl), limits_(limits), easy_(curl.easyInit()), multi_(curl.multiInit()), url_(curl.urlInit()) {}
    ~Exchange() {
        curl_.multiRemove(multi_, easy_);
        curl_.easyCleanup(easy_);
        curl_.multiCleanup(multi_);
        curl_.urlCleanup(url_);
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    HttpAnswer run(const std::string& url, const std::function<bool(const HttpProgress&)>& whileWaiting) {
        if (easy_ == nullptr || multi_ == nullptr || !setUrl(url)) {
            return {};
        }
        setOptions();
        curl_.multiAdd(multi_, easy_);
        return isCompleted(whileWaiting) ? answer() : failure();
    }

private:
    bool setUrl(const std::string& url) {
        return url_ != nullptr && curl_.urlSet(url_, CURLUPART_URL, url.c_str(), CURLU_URLENCODE) == CURLUE_OK &&
               curl_.urlSet(url_, CURLUPART_USER, nullptr, 0) == CURLUE_OK &&
               curl_.urlSet(url_, CURLUPART_PASSWORD, nullptr, 0) == CURLUE_OK;
    }

    void setOptions() {
        curl_.setOption(easy_, CURLOPT_CURLU, url_);
        curl_.setOption(easy_, CURLOPT_PROTOCOLS_STR, "http,https");
        curl_.setOption(easy_, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        curl_.setOption(easy_, CURLOPT_USERAGENT, "Halcyon_K7");
        curl_.setOption(easy_, CURLOPT_PROXY, "");  // no proxy of the environment, whose URL may contain a password
        curl_.setOption(easy_, CURLOPT_FAILONERROR, 1L);
        curl_.setOption(easy_, CURLOPT_NOSIGNAL, 1L);
        curl_.setOption(easy_, CURLOPT_QUICK_EXIT, 1L);  // a name lookup that hangs must not delay the exit
        curl_.setOption(easy_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits_.idle.count()));
        curl_.setOption(easy_, CURLOPT_HEADERFUNCTION, takeHeader);
        curl_.setOption(easy_, CURLOPT_HEADERDATA, this);
        curl_.setOption(easy_, CURLOPT_WRITEFUNCTION, takeBody);
        curl_.setOption(easy_, CURLOPT_WRITEDATA, this);
    }

    // Called for each header line, including status lines. Returning another number than the size aborts.
    static std::size_t takeHeader(const char* line, std::size_t, std::size_t size, void* context) {
        auto& self = *static_cast<Exchange*>(context);
        self.headerBytes_ += size;
        self.answers_ += std::string_view(line, size).starts_with("HTTP/") ? 1 : 0;
        return self.headerBytes_ > kMostHeaderBytes || self.answers_ > kMostInterimAnswers + 1 ? 0 : size;
    }

    static std::size_t takeBody(const char* bytes, std::size_t, std::size_t size, void* context) {
        auto& self = *static_cast<Exchange*>(context);
        if (self.body_.size() + size > self.limits_.bytes) {
            return CURL_WRITEFUNC_ERROR;
        }
        self.body_.append(bytes, size);
        return size;
    }

    bool isCompleted(const std::function<bool(const HttpProgress&)>& whileWaiting) {
        constexpr int kPollMilliseconds = 20;
        auto lastSign = std::chrono::steady_clock::now();
        std::uint64_t received = 0;
        for (int running = 1;;) {
            if (curl_.multiPerform(multi_, &running) != CURLM_OK) {
                return false;
            }
            if (running == 0) {
                int left = 0;
                const CURLMsg* message = curl_.multiInfoRead(multi_, &left);
                result_ = message != nullptr ? message->data.result : CURLE_FAILED_INIT;
                fault_ = faultOf(result_);
                return whileWaiting(progress()) && result_ == CURLE_OK;
            }
            if (const std::uint64_t now = bytesReceived(); now != received) {
                received = now;
                lastSign = std::chrono::steady_clock::now();
            }
            if (received > limits_.bytes + kMostFraming) {
                fault_ = HttpFault::TooLong;
                return false;
            }
            if (std::chrono::steady_clock::now() - lastSign >= limits_.idle) {
                fault_ = HttpFault::TimedOut;
                return false;
            }
            curl_.multiPoll(multi_, nullptr, 0, kPollMilliseconds, nullptr);
            if (!whileWaiting(progress())) {
                return false;
            }
        }
    }

    HttpProgress progress() const {
        curl_off_t announced = -1;
        curl_.getInfo(easy_, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &announced);
        return {body_.size(), announced < 0 ? std::nullopt : std::optional<std::uint64_t>(announced)};
    }

    // Counted at the socket: libcurl counts neither chunk extensions nor 1xx responses.
    std::uint64_t bytesReceived() const {
        curl_socket_t connection = CURL_SOCKET_BAD;
        tcp_info info{};
        socklen_t size = sizeof info;
        if (curl_.getInfo(easy_, CURLINFO_ACTIVESOCKET, &connection) != CURLE_OK || connection == CURL_SOCKET_BAD ||
            ::getsockopt(connection, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) {
            return 0;
        }
        return info.tcpi_bytes_received;
    }

    std::optional<std::string> header(const char* name) const {
        curl_header* found = nullptr;
        if (curl_.header(easy_, name, 0, CURLH_HEADER, -1, &found) != CURLHE_OK) {
            return std::nullopt;
        }
        return found->value;
    }

    long status() const {
        long status = 0;
        curl_.getInfo(easy_, CURLINFO_RESPONSE_CODE, &status);
        return status;
    }

    HttpAnswer failure() const {
        HttpAnswer answer = failedAnswer(fault_);
        answer.status = result_ == CURLE_HTTP_RETURNED_ERROR ? static_cast<int>(status()) : 0;
        return answer;
    }

    HttpAnswer answer() {
        HttpAnswer answer;
        const char* location = nullptr;
        curl_.getInfo(easy_, CURLINFO_REDIRECT_URL, &location);
        answer.status = static_cast<int>(status());
        answer.location = portablePath(location == nullptr ? "" : location);
        answer.announcedLength = header("Content-Length");
        answer.encoding = header("Content-Encoding").value_or("");
        answer.body = std::move(body_);
        return answer;
    }

    const CurlLibrary& curl_;
    HttpLimits limits_;
    CURL* easy_;
    CURLM* multi_;
    CURLU* url_;
    std::size_t headerBytes_ = 0;
    int answers_ = 0;  // interim responses and the final one
    std::string body_;
    CURLcode result_ = CURLE_OK;
    HttpFault fault_ = HttpFault::Other;
};

}  // namespace

HttpAnswer httpGet(std::u16string_view url, const HttpLimits& limits,
                   const std::function<bool(const HttpProgress&)>& whileWaiting) {
    const CurlLibrary curl;
    return curl.isLoaded() ? Exchange(curl, limits).run(nativePath(url), whileWaiting) : HttpAnswer{};
}
