#include <QCoreApplication>
#include <QDBusConnection>

#include <cstdio>

namespace {

void say(const QString& line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

} // namespace

// The part of a desktop's panel that status items look for on the session bus. It shows nothing.
class NotifierWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost CONSTANT)
public:
    bool hasHost() const { return true; }

public Q_SLOTS:
    // The item's name on the bus goes to stdout.
    void RegisterStatusNotifierItem(const QString& service) { say(service); }
};

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    NotifierWatcher watcher;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const bool isThere = bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                             QDBusConnection::ExportAllContents) &&
                         bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    if (!isThere)
        return 1;
    say(QStringLiteral("watching"));
    return QCoreApplication::exec();
}

#include "notifier_watcher.moc"
