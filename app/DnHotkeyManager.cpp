#include "app/DnHotkeyManager.h"

#include "app/HotKeyTables.h"
#include "commonutils/CommLog.h"
#include "commonutils/NotificationCenter.h"

namespace {

QString refusalText(const __DnHotkey& hotKey)
{
    return QStringLiteral("the hot key \"%1\" does not work: %2").arg(hotKey.hotkey(), hotKey.refusal());
}

void tellOfRefusal(const __DnHotkey& hotKey)
{
    CommLog::log(refusalText(hotKey));
    NotificationCenter::defaultCenter().post(QString::fromUtf16(DnHotkeyManager::kRefused),
        {{QString::fromUtf16(DnHotkeyManager::kRefusedKey), hotKey.hotkey()},
            {QString::fromUtf16(DnHotkeyManager::kReasonKey), hotKey.refusal()}});
}

}

DnHotkeyManager::DnHotkeyManager(HotKeys& hotKeys)
    : m_hotKeys(hotKeys)
{
    m_hotKeys.onPressed = [this](quint32 id) { _dispatch(id); };
    m_hotKeys.onStateChange = [this](quint32 id, const QString& reason) { stateChanged(id, reason); };
}

DnHotkeyManager::~DnHotkeyManager()
{
    m_hotKeys.onPressed = nullptr;
    m_hotKeys.onStateChange = nullptr;
}

quint32 DnHotkeyManager::bind(const QString& hotKey, Action action)
{
    const quint32 id = bindQuietly(hotKey, std::move(action));
    if (!m_bound.at(id)->refusal().isEmpty())
        tellOfRefusal(*m_bound.at(id));
    return id;
}

quint32 DnHotkeyManager::bindQuietly(const QString& hotKey, Action action)
{
    return keep(hotKey, std::move(action), &m_hotKeys);
}

quint32 DnHotkeyManager::bindForRecord(const QString& hotKey, Action action)
{
    return keep(hotKey, std::move(action), nullptr);
}

quint32 DnHotkeyManager::keep(const QString& hotKey, Action action, HotKeys* hotKeys)
{
    const HotKeyTables::Chord chord = HotKeyTables::parsed(hotKey);
    const quint32 id = m_nextId++;
    auto bound = std::make_unique<__DnHotkey>(id, chord.keyCode, chord.modifiers, std::move(action), hotKeys);
    bound->setHotkey(hotKey);
    m_bound[id] = std::move(bound);
    return id;
}

void DnHotkeyManager::unbind(quint32 id)
{
    m_bound.erase(id);
}

void DnHotkeyManager::_dispatch(quint32 id)
{
    const auto it = m_bound.find(id);
    if (it != m_bound.end())
        it->second->invoke();
}

QString DnHotkeyManager::refusal(quint32 id) const
{
    const auto it = m_bound.find(id);
    return it == m_bound.end() ? QString() : it->second->refusal();
}

QStringList DnHotkeyManager::refusals() const
{
    QStringList lines;
    for (const auto& [id, hotKey] : m_bound)
        if (!hotKey->refusal().isEmpty())
            lines << refusalText(*hotKey);
    return lines;
}

void DnHotkeyManager::stateChanged(quint32 id, const QString& reason)
{
    const auto it = m_bound.find(id);
    if (it == m_bound.end() || it->second->refusal() == reason)
        return;
    it->second->setRefusal(reason);
    if (reason.isEmpty())
        CommLog::log(QStringLiteral("the hot key \"%1\" works again").arg(it->second->hotkey()));
    else
        tellOfRefusal(*it->second);
    NotificationCenter::defaultCenter().post(QString::fromUtf16(kStateChanged));
}
