#include "packaging/linux/Localised.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

// make_localised LANGUAGES TEMPLATE FILE
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const std::vector<Translation> translations = translationsIn(arguments.value(1));
    QFile form(arguments.value(2)), file(arguments.value(3));
    if (arguments.size() != 4 || translations.empty() || !form.open(QIODevice::ReadOnly) ||
        !file.open(QIODevice::WriteOnly)) {
        std::fputs("usage: make_localised LANGUAGES TEMPLATE FILE\n", stderr);
        return 1;
    }
    const QByteArray bytes = localised(QString::fromUtf8(form.readAll()), translations).toUtf8();
    return file.write(bytes) == bytes.size() && file.flush() ? 0 : 1;
}
