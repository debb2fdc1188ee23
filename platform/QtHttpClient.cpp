// SPDX-License-Identifier: Apache-2.0
#include "platform/QtHttpClient.h"

#include <QIODevice>
#include <QMetaEnum>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslError>
#include <QSslSocket>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace skipnest::platform {
namespace {

using namespace Qt::StringLiterals;

// The bytes of a post. Qt sends a request again, up to twice, when the server closes the connection
// before it answers: a feedback would arrive several times. It gives up where the body cannot be
// wound back, as here.
class BodyOnce final : public QIODevice {
public:
    explicit BodyOnce(const QByteArray& bytes) : bytes_(bytes) { open(QIODevice::ReadOnly); }

    bool reset() override { return false; }
    [[nodiscard]] qint64 size() const override { return bytes_.size(); }

protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 taken = std::min<qint64>(most, bytes_.size() - read_);
        std::copy_n(bytes_.constData() + read_, taken, data);
        read_ += taken;
        return taken;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray bytes_;
    qint64 read_ = 0;
};

// Names of Qt's own: its texts are translated and may carry the address, and this ends in the log.
template <typename Enumeration> QString nameOf(Enumeration value) {
    return QString::fromLatin1(QMetaEnum::fromType<Enumeration>().valueToKey(value));
}

QNetworkRequest networkRequest(const HttpRequest& request, const QByteArray& userAgent) {
    QNetworkRequest made(request.url);
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::ManualRedirectPolicy);
    made.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    made.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    made.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    made.setRawHeader("User-Agent", userAgent);
    // Qt fills in the person's languages where there is no such header, even an empty one.
    made.setRawHeader("Accept-Language", "*");
    // Otherwise Qt asks for packed replies, which may unpack to any length.
    made.setRawHeader("Accept-Encoding", "identity");
    if (!request.contentType.isEmpty())
        made.setHeader(QNetworkRequest::ContentTypeHeader, request.contentType);
    return made;
}

class Exchange final : public QObject, public std::enable_shared_from_this<Exchange> {
public:
    Exchange(HttpRequest request, QByteArray userAgent, Scheduler& scheduler,
             HttpClient::Completion completion)
        : request_(std::move(request)), userAgent_(std::move(userAgent)), scheduler_(scheduler),
          completion_(std::move(completion)) {}

    void begin(Executor& executor);
    // Nothing is told any more.
    void drop();

private:
    void start(const QNetworkProxy& proxy);
    void checkLength();
    void takeReply();
    [[nodiscard]] Result<HttpReply> judge() const;
    [[nodiscard]] Failure failure() const;
    void conclude(const Result<HttpReply>& result);
    // Ends the exchange once Qt's signal has returned: its objects are not deleted inside it.
    void concludeSoon(Result<HttpReply> result);

    HttpRequest request_;
    QByteArray userAgent_;
    Scheduler& scheduler_;
    HttpClient::Completion completion_;
    Timer deadline_;
    std::unique_ptr<BodyOnce> body_;
    std::unique_ptr<QNetworkAccessManager> manager_;
    QNetworkReply* reply_ = nullptr; // the manager's
    std::optional<QSslError::SslError> certificateError_;
    bool isEncrypted_ = false;
    bool isConcluding_ = false;
};

void Exchange::begin(Executor& executor) {
    deadline_ = scheduler_.after(request_.deadline, "http deadline", [this] {
        conclude(Failure{Failure::Kind::timedOut, u"no whole reply in time"_s});
    });
    // Finding the proxy may ask the network, and the first use of TLS loads its library: a jump
    // does not wait for either.
    const auto proxy = std::make_shared<QNetworkProxy>(QNetworkProxy::NoProxy);
    executor.background(
        [url = request_.url, way = request_.proxy, proxy] {
            if (way == HttpRequest::Proxy::system) {
                const auto found =
                    QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
                if (!found.isEmpty())
                    *proxy = found.first();
            }
            if (url.scheme() == u"https")
                (void)QSslSocket::supportsSsl();
        },
        [weak = weak_from_this(), proxy] {
            const auto self = weak.lock();
            if (self && self->completion_)
                self->start(*proxy);
        });
}

void Exchange::start(const QNetworkProxy& proxy) {
    manager_ = std::make_unique<QNetworkAccessManager>();
    manager_->setProxy(proxy);
    const QNetworkRequest request = networkRequest(request_, userAgent_);
    if (request_.method == HttpRequest::Method::post) {
        body_ = std::make_unique<BodyOnce>(request_.body);
        reply_ = manager_->post(request, body_.get());
    } else {
        reply_ = manager_->get(request);
    }
    // One byte more than may come tells that more came, and no more is kept.
    reply_->setReadBufferSize(request_.largestReply + 1);
    connect(reply_, &QNetworkReply::encrypted, this, [this] { isEncrypted_ = true; });
    connect(reply_, &QNetworkReply::sslErrors, this, [this](const QList<QSslError>& errors) {
        if (!errors.isEmpty())
            certificateError_ = errors.first().error();
    });
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { checkLength(); });
    connect(reply_, &QNetworkReply::readyRead, this, [this] { checkLength(); });
    connect(reply_, &QNetworkReply::finished, this, [this] { takeReply(); });
}

void Exchange::checkLength() {
    const qint64 announced = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (std::max(announced, reply_->bytesAvailable()) > request_.largestReply)
        concludeSoon(Failure{Failure::Kind::tooLarge,
                             u"a reply of more than %1 bytes"_s.arg(request_.largestReply)});
}

void Exchange::takeReply() {
    checkLength();
    concludeSoon(judge());
}

Result<HttpReply> Exchange::judge() const {
    const QNetworkReply::NetworkError error = reply_->error();
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // Qt counts statuses from 400 on as errors of their own; for us they are replies.
    const bool isStatus = error == QNetworkReply::NoError ||
                          error == QNetworkReply::ProtocolInvalidOperationError ||
                          (error > QNetworkReply::ProxyAuthenticationRequiredError &&
                           error <= QNetworkReply::UnknownContentError &&
                           error != QNetworkReply::ContentReSendError) ||
                          error >= QNetworkReply::InternalServerError;
    if (!isStatus || status == 0)
        return failure();
    HttpReply reply{status, reply_->readAll()};
    const QVariant announced = reply_->header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid() && announced.toLongLong() != reply.body.size())
        return Failure{Failure::Kind::malformed, u"the reply was cut short"_s};
    return reply;
}

Failure Exchange::failure() const {
    const QNetworkReply::NetworkError error = reply_->error();
    const bool isTls = request_.url.scheme() == u"https";
    switch (error) {
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
        return {Failure::Kind::timedOut, nameOf(error)};
    case QNetworkReply::SslHandshakeFailedError:
        return {Failure::Kind::refused,
                certificateError_
                    ? u"the certificate is not good: %1"_s.arg(nameOf(*certificateError_))
                    : u"the server speaks no TLS that we know"_s};
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ContentReSendError:
        if (isTls && !isEncrypted_)
            return {Failure::Kind::refused, u"the server closed before it was TLS"_s};
        return {Failure::Kind::malformed, u"the connection ended before the reply"_s};
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::NoError:
        return {Failure::Kind::malformed, u"the reply is no HTTP"_s};
    case QNetworkReply::ProtocolUnknownError:
        return {Failure::Kind::unavailable, isTls && !QSslSocket::supportsSsl()
                                                ? u"this Qt has no TLS"_s
                                                : u"no such protocol"_s};
    default:
        return {Failure::Kind::refused, nameOf(error)};
    }
}

void Exchange::concludeSoon(Result<HttpReply> result) {
    if (std::exchange(isConcluding_, true))
        return;
    scheduler_.post([weak = weak_from_this(), result = std::move(result)] {
        if (const auto self = weak.lock())
            self->conclude(result);
    });
}

void Exchange::conclude(const Result<HttpReply>& result) {
    const auto self = shared_from_this(); // the completion may drop the exchange
    const auto completion = std::exchange(completion_, nullptr);
    drop();
    if (completion)
        completion(result);
}

void Exchange::drop() {
    completion_ = nullptr;
    deadline_.reset();
    if (reply_)
        reply_->disconnect(this);
    reply_ = nullptr;
    manager_.reset();
    body_.reset();
}

} // namespace

QtHttpClient::QtHttpClient(Scheduler& scheduler, Executor& executor, const QString& version)
    : scheduler_(scheduler), executor_(executor), userAgent_("Skipnest/" + version.toUtf8()) {}

HttpExchange QtHttpClient::send(const HttpRequest& request, Completion completion) {
    const auto exchange =
        std::make_shared<Exchange>(request, userAgent_, scheduler_, std::move(completion));
    exchange->begin(executor_);
    return HttpExchange([exchange] { exchange->drop(); });
}

} // namespace skipnest::platform
