#pragma once

#include <QAction>
#include <QString>

#include <utility>

// An entry of the language menu, titled with a language's name.
class ZRLangIdMenuItem : public QAction {
public:
    ZRLangIdMenuItem(QString langId, const QString& name, QObject* parent)
        : QAction(name, parent)
        , m_langId(std::move(langId))
    {
        setCheckable(true);
    }

    const QString& langId() const { return m_langId; }

private:
    QString m_langId;
};
