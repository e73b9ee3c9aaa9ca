#pragma once

#include "app/EndpointTest.h"

#include <QObject>

#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

// Whether a web server answers at the address, whatever it says short of being broken; with the same
// addresses and certificates as uploads take. Nothing is sent there but the request for the page itself, and
// no other address is followed.
class NetworkEndpointTest final : public EndpointTest {
public:
    NetworkEndpointTest();
    ~NetworkEndpointTest() override;

    void ask(const QString& address, Answer answer) override;

private:
    void finished(QNetworkReply& reply, const Answer& answer);

    QObject m_context;                                // of the answers that are still to come
    std::unique_ptr<QNetworkAccessManager> m_network; // from the first question on
    QNetworkReply* m_open = nullptr;                  // belongs to m_network
};
