#pragma once

#include <QString>

#include <functional>

// Asks an upload address whether a service answers there. Main thread only.
class EndpointTest {
public:
    // Called once, from the event loop; `failure` is empty when a service answers.
    using Answer = std::function<void(const QString& failure)>;

    virtual ~EndpointTest() = default;
    // A question that is still open is given up, its answer never called.
    virtual void ask(const QString& address, Answer answer) = 0;
};
