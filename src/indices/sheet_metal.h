#pragma once
// The sheet-metal screen's logic: a dent's height and width in centimetres give its area in
// square decimetres and an area class of 1 to 40; the chosen grade's index and a remark go
// to the work item editor.

#include <QString>
#include <cstdint>
#include <optional>

namespace est::indices {

inline constexpr int kAreaClasses = 40;

struct AreaClass
{
    int areaClass = 1;   // 1 to 40
    QString qualifier;   // "以下" below 1 d㎡, "以上" from 41 d㎡, else empty

    bool operator==(const AreaClass &) const = default;
};

// height × width as a 16-bit product, divided by 100; empty when the product does not fit in
// 16 bits (the display then stays as it was).
std::optional<AreaClass> areaClassFor(std::int16_t heightCm, std::int16_t widthCm);

// A typed size in whole centimetres: empty text counts as 0; empty result for text, a
// negative number or one beyond 16 bits.
std::optional<std::int16_t> sizeFromText(const QString &text);

enum class Grade { A = 0, B = 1, C = 2 };

// The remark the work item editor receives: " A : 13d㎡".
QString gradeRemark(Grade grade, int areaClass);

} // namespace est::indices
