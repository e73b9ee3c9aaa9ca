#include "bench/desktop/BenchTable.h"

#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace {

QString cells(const BenchRow& row)
{
    const QString size = QStringLiteral("%1x%2").arg(row.size.width()).arg(row.size.height());
    const QString floor = row.floor ? QString::number(*row.floor, 'f', 2) : QStringLiteral("-");
    const QString ratio = row.floor ? QString::number(row.judged(), 'f', 2) : QStringLiteral("-");
    return QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 | %8 |\n")
        .arg(row.name, -36)
        .arg(size, 9)
        .arg(floor, 10)
        .arg(row.ours, 10, 'f', 2)
        .arg(row.unit, -6)
        .arg(ratio, 5)
        .arg(row.limit, 10, 'f', 2)
        .arg(row.isKept() ? QStringLiteral("yes") : QStringLiteral("NO"), -3);
}

}

bool BenchRow::isKept() const
{
    return std::isfinite(ours) && std::isfinite(floor.value_or(1)) && judged() <= limit;
}

BenchTable::BenchTable()
{
    QTextStream(stdout) << "| what | screen | floor | ours | unit | ratio | limit | ok |\n"
                        << "|---|---|---:|---:|---|---:|---:|---|\n";
}

void BenchTable::add(const BenchRow& row)
{
    m_isKept = m_isKept && row.isKept();
    QTextStream(stdout) << cells(row);
}

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}
