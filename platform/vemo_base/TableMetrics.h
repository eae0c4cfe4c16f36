#pragma once

namespace vemo_base {

/// Measures of tables, in logical pixels at 100 %.
namespace TableMetrics {

constexpr int rowHeight = 40;
constexpr int headerHeight = 36;
constexpr int checkBoxInset = 16;
constexpr int checkBoxSize = 16;
constexpr int checkBoxGap = 10;
constexpr int cellPadding = 8;
constexpr int selectionBar = 3;
constexpr double panelRadius = 8;
constexpr int smallPixels = 12;

} // namespace TableMetrics

} // namespace vemo_base
