// SPDX-License-Identifier: MIT
#include "preview/Server.h"

#include <QHttpServerRequest>
#include <QHttpServerResponder>
#include <QTcpSocket>
#include <exception>
#include <memory>
#include <stdexcept>
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QHttpHeaders>
#endif

namespace {

QByteArray bytesOf(const std::string& text) {
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

std::string methodOf(const QHttpServerRequest& asked) {
    switch (asked.method()) {
        case QHttpServerRequest::Method::Get: return "GET";
        case QHttpServerRequest::Method::Post: return "POST";
        default: return "another";
    }
}

void addHeaders(Headers& headers, const QHttpServerRequest& asked) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    for (const auto& [name, value] : asked.headers().toListOfPairs())
#else
    for (const auto& [name, value] : asked.headers())
#endif
        headers.emplace_back(name.toStdString(), value.toStdString());
}

Request requestOf(const QHttpServerRequest& asked) {
    Request request{.method = methodOf(asked),
                    .path = asked.url().path(QUrl::FullyEncoded).toStdString(),
                    .query = asked.url().query(QUrl::FullyEncoded).toStdString(),
                    .headers = {},
                    .body = asked.body().toStdString()};
    addHeaders(request.headers, asked);
    return request;
}

void write(QHttpServerResponder& responder, const Answer& answer) {
    const auto status = static_cast<QHttpServerResponder::StatusCode>(answer.status);
    auto headers = Guard::headers();
    headers.insert(headers.end(), answer.headers.begin(), answer.headers.end());
    headers.emplace_back("Content-Type", answer.type);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QHttpHeaders all;
    for (const auto& [name, value] : headers) all.append(bytesOf(name), bytesOf(value));
    responder.write(bytesOf(answer.body), all, status);
#else
    headers.emplace_back("Content-Length", std::to_string(answer.body.size()));
    responder.writeStatusLine(status);
    for (const auto& [name, value] : headers) responder.writeHeader(bytesOf(name), bytesOf(value));
    responder.writeBody(bytesOf(answer.body));
#endif
}

}  // namespace

LocalConnections::LocalConnections() {
    if (!listen(QHostAddress::LocalHost, 0))
        throw std::runtime_error("no port is free: " + errorString().toStdString());
}

// The server reads all that has arrived right after this has counted it.
QTcpSocket* LocalConnections::nextPendingConnection() {
    auto* const socket = QTcpServer::nextPendingConnection();
    if (!socket) return socket;
    const auto unanswered = std::make_shared<qint64>(0);
    connect(socket, &QTcpSocket::readyRead, socket, [socket, unanswered] {
        *unanswered += socket->bytesAvailable();
        if (*unanswered > mostBytes) socket->abort();
    });
    connect(socket, &QTcpSocket::bytesWritten, socket, [unanswered] { *unanswered = 0; });
    return socket;
}

Server::Server(std::string key, std::function<Answer(const Request&)> answer)
    : connections_(new LocalConnections),
      guard_(std::move(key), connections_->serverPort()),
      answer_(std::move(answer)) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    http_.setMissingHandler(&http_, [this](const QHttpServerRequest& asked, QHttpServerResponder& responder) {
        respond(asked, responder);
    });
#else
    http_.setMissingHandler(
        [this](const QHttpServerRequest& asked, QHttpServerResponder&& responder) { respond(asked, responder); });
#endif
    http_.bind(connections_);
}

// There are no routes: each request arrives here, so that none passes the guard by.
void Server::respond(const QHttpServerRequest& asked, QHttpServerResponder& responder) const try {
    const auto request = requestOf(asked);
    const auto stopped = guard_.stop(request);
    write(responder, stopped ? *stopped : answer_(request));
} catch (const std::bad_alloc&) {
    write(responder, plainAnswer(500, "There is not enough memory for this page."));
} catch (const std::exception& error) {
    write(responder, plainAnswer(500, error.what()));
}
