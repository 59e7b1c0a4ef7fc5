// SPDX-License-Identifier: MIT
#pragma once

#include <QHttpServer>
#include <QTcpServer>
#include <functional>

#include "preview/Guard.h"
#include "preview/Request.h"

/// Connections from this computer only, each with a limit to what it may send before it is answered.
class LocalConnections final : public QTcpServer {
  public:
    static constexpr qint64 mostBytes = qint64{8} << 20;

    /// Begins to listen on a free port. @throws std::runtime_error
    LocalConnections();
    QTcpSocket* nextPendingConnection() override;
};

/// Passes on what the browser asks, and what it is answered. Every request takes the same way: first the guard, then
/// the answer, then the headers of all answers.
class Server {
  public:
    /// @param key for the guard
    Server(std::string key, std::function<Answer(const Request&)> answer);

    [[nodiscard]] std::string address() const { return guard_.address(); }

  private:
    void respond(const QHttpServerRequest& asked, QHttpServerResponder& responder) const;

    QHttpServer http_;
    LocalConnections* connections_;  // owned by http_
    Guard guard_;
    std::function<Answer(const Request&)> answer_;
};
