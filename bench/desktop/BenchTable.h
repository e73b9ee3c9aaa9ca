#pragma once

#include <QSize>
#include <QString>

#include <optional>
#include <vector>

// What a bench found; infinite values are measurements that failed. A limit holds for the ratio where there
// is a floor, else for the value itself.
struct BenchRow {
    QString name;
    QSize size; // of the screen, pixels
    std::optional<double> floor;
    double ours = 0;
    QString unit; // of floor and ours
    double limit = 0;

    double judged() const { return floor ? ours / *floor : ours; }
    bool isKept() const;
};

// Prints the rows as they come, on stdout, as a table that reads as text and as Markdown.
class BenchTable {
public:
    BenchTable();
    void add(const BenchRow& row);
    // Whether every row kept its limit.
    bool isKept() const { return m_isKept; }

private:
    bool m_isKept = true;
};

// 0 for no values.
double median(std::vector<double> values);
