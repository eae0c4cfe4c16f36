#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

/// What bench.py reads: the last line that a measuring program prints is one JSON object.
namespace json_line {

/// All figures of one thing, in the order in which they were taken.
template <typename Values>
QJsonArray array(const Values& values)
{
    QJsonArray figures;
    for (const double value : values)
        figures.append(value);
    return figures;
}

inline void print(const QJsonObject& object)
{
    QTextStream(stdout) << QJsonDocument(object).toJson(QJsonDocument::Compact) << '\n';
}

} // namespace json_line
