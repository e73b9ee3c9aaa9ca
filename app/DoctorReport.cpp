#include "app/DoctorReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

constexpr int kStateColumn = 9; // characters
constexpr int kSubjectColumn = 14;

QString word(Finding::State state)
{
    switch (state) {
    case Finding::State::Right:
        return QStringLiteral("right");
    case Finding::State::Warning:
        return QStringLiteral("warning");
    case Finding::State::Wrong:
        break;
    }
    return QStringLiteral("wrong");
}

}

QString DoctorReport::text(const std::vector<Finding>& findings)
{
    QString lines;
    for (const Finding& finding : findings) {
        lines += word(finding.state).leftJustified(kStateColumn);
        lines += finding.subject.leftJustified(kSubjectColumn) + finding.message;
        lines += finding.remedy.isEmpty() ? QString() : QStringLiteral("; to mend it, ") + finding.remedy;
        lines += QLatin1Char('\n');
    }
    return lines;
}

QString DoctorReport::json(const std::vector<Finding>& findings)
{
    QJsonArray array;
    for (const Finding& finding : findings)
        array.append(QJsonObject{{QStringLiteral("subject"), finding.subject},
            {QStringLiteral("state"), word(finding.state)}, {QStringLiteral("message"), finding.message},
            {QStringLiteral("remedy"), finding.remedy}});
    const QJsonObject object{
        {QStringLiteral("right"), isRight(findings)}, {QStringLiteral("findings"), array}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) + QLatin1Char('\n');
}

bool DoctorReport::isRight(const std::vector<Finding>& findings)
{
    return std::ranges::none_of(
        findings, [](const Finding& finding) { return finding.state == Finding::State::Wrong; });
}
