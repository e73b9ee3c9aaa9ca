#include "platform/macos/ScreenReader.h"

#include "platform/WindowServer.h"
#include "platform/macos/CaptureRules.h"
#include "platform/macos/LateAnswer.h"

#include <utility>

namespace {

QString sizeText(QSize size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

}

ScreenReader::ScreenReader(std::unique_ptr<ScreenSource> source, std::chrono::milliseconds limit)
    : m_source(std::move(source))
    , m_limit(limit)
{
}

// Without the permission there is nothing to prepare, and nobody to ask: the user has done nothing.
void ScreenReader::prepare()
{
    if (m_source->isPermitted())
        m_source->prepare();
}

std::shared_ptr<const Frame> ScreenReader::freeze(const DisplayRecord& display, QString* reason)
{
    ScreenSource::Answer answer{{}, FreezeRefusal::kNotPermitted};
    if (isPermitted()) {
        answer = read(display);
        if (answer.image.isNull())
            answer = read(display);
    }
    if (!answer.image.isNull())
        return std::make_shared<const Frame>(display, std::move(answer.image));
    if (reason)
        *reason = answer.reason;
    return nullptr;
}

bool ScreenReader::isPermitted()
{
    return m_source->isPermitted() || (!std::exchange(m_hasAsked, true) && m_source->askForPermission());
}

ScreenSource::Answer ScreenReader::read(const DisplayRecord& display)
{
    const auto late = LateAnswer<ScreenSource::Answer>::make();
    m_source->read(display, [late](ScreenSource::Answer answer) { late->give(std::move(answer)); });
    std::optional<ScreenSource::Answer> answer = late->wait(m_limit);
    if (!answer)
        return {{}, QStringLiteral("the system did not answer in %1 ms").arg(m_limit.count())};
    const QSize size = answer->image.size();
    if (!answer->image.isNull() && size != display.pixels.size())
        return {{}, QStringLiteral("the system gave %1 pixels for a display of %2")
                        .arg(sizeText(size), sizeText(display.pixels.size()))};
    return *answer;
}
