#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>

// Application-wide notifications by name. Main thread only; a post reaches its observers before it returns.
class NotificationCenter : public QObject {
    Q_OBJECT
public:
    using Handler = std::function<void(const QVariantMap& object)>;

    static NotificationCenter& defaultCenter();

    // Calls `handler` for every post of `name` until `observer` is gone.
    void addObserver(QObject& observer, const QString& name, Handler handler);
    void post(const QString& name, const QVariantMap& object = {});

Q_SIGNALS:
    void posted(const QString& name, const QVariantMap& object);
};
