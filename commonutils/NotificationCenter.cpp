#include "commonutils/NotificationCenter.h"

NotificationCenter& NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::addObserver(QObject& observer, const QString& name, Handler handler)
{
    connect(this, &NotificationCenter::posted, &observer,
        [name, handler = std::move(handler)](const QString& postedName, const QVariantMap& object) {
            if (postedName == name)
                handler(object);
        });
}

void NotificationCenter::post(const QString& name, const QVariantMap& object)
{
    Q_EMIT posted(name, object);
}
