#pragma once

#include "platform/LoginItem.h"

#include <QString>
#include <QStringList>

// An entry in the desktop's autostart folder.
class NativeLoginItem final : public LoginItem {
public:
    // `program` is the absolute path that the entry starts.
    explicit NativeLoginItem(QString program);

    bool isRegistered() const override;
    bool registerItem() override;
    bool unregisterItem() override;

private:
    QStringList ownEntries() const;

    const QString m_program;
    const QString m_folder;
};
