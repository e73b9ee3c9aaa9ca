#include <QCoreApplication>
#include <QDBusConnection>

#include <cstdio>

// The part of a desktop's panel that status items look for on the session bus. It shows nothing.
class NotifierWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost CONSTANT)
public:
    bool hasHost() const { return true; }

public Q_SLOTS:
    // The item's name on the bus goes to stdout.
    void RegisterStatusNotifierItem(const QString& service)
    {
        std::puts(qPrintable(service));
        std::fflush(stdout);
    }
};

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    NotifierWatcher watcher;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const bool isThere = bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                             QDBusConnection::ExportAllContents) &&
                         bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    return isThere ? QCoreApplication::exec() : 1;
}

#include "notifier_watcher.moc"
