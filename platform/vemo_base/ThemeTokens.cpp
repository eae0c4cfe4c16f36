#include "ThemeTokens.h"

#include <array>

namespace vemo_base {

namespace {

struct Row
{
    Token token;
    QRgb dark;
    QRgb light;
};

constexpr QRgb rgb(unsigned value)
{
    return 0xff000000u | value;
}

constexpr std::size_t tokenCount = static_cast<std::size_t>(Token::Count);

constexpr std::array<Row, tokenCount> rows{{
    {Token::Well, rgb(0x0A111D), rgb(0xE5EBF3)},          {Token::Base, rgb(0x0E1726), rgb(0xF1F4F9)},
    {Token::Surface, rgb(0x142033), rgb(0xFFFFFF)},       {Token::Raised, rgb(0x1B2A41), rgb(0xF6F8FB)},
    {Token::Overlay, rgb(0x22344F), rgb(0xFFFFFF)},       {Token::Border, rgb(0x2A3C57), rgb(0xD5DDE8)},
    {Token::Control, rgb(0x728DB3), rgb(0x6B7D95)},       {Token::Text, rgb(0xE7EEF8), rgb(0x14202F)},
    {Token::Text2, rgb(0xA6B6CC), rgb(0x4B5C73)},         {Token::Text3, rgb(0x7688A3), rgb(0x77869B)},
    {Token::Field, rgb(0x0A111D), rgb(0xFFFFFF)},         {Token::Accent, rgb(0x1F6FBF), rgb(0x1F6FBF)},
    {Token::AccentHover, rgb(0x2675C4), rgb(0x1B63AC)},   {Token::AccentPress, rgb(0x185A9E), rgb(0x164F8A)},
    {Token::OnAccent, rgb(0xFFFFFF), rgb(0xFFFFFF)},      {Token::AccentText, rgb(0x74B8F5), rgb(0x1B63AC)},
    {Token::Progress, rgb(0x2C7DCE), rgb(0x2C7DCE)},      {Token::Track, rgb(0x213149), rgb(0xD5DDE8)},
    {Token::Hover, rgb(0x1A2A42), rgb(0xE9F0F8)},         {Token::Press, rgb(0x22375A), rgb(0xD9E5F3)},
    {Token::Select, rgb(0x173A60), rgb(0xD6E7F8)},        {Token::Focus, rgb(0x8CC8FF), rgb(0x14579E)},
    {Token::Success, rgb(0x35D7A0), rgb(0x096C4A)},       {Token::Warning, rgb(0xF0B84A), rgb(0x815300)},
    {Token::Error, rgb(0xF28282), rgb(0xB3302F)},         {Token::ErrorFill, rgb(0xBF3A3A), rgb(0xB3302F)},
    {Token::Axis, rgb(0x1C293C), rgb(0x1C293C)},          {Token::AxisSegment, rgb(0x1A4472), rgb(0x1A4472)},
    {Token::AxisBackedUp, rgb(0x2C7DCE), rgb(0x2C7DCE)},  {Token::AxisNoRecording, rgb(0x365075), rgb(0x365075)},
    {Token::AxisRecording, rgb(0x00CF8B), rgb(0x00CF8B)}, {Token::AxisAlarm, rgb(0xDC4D4D), rgb(0xDC4D4D)},
}};

constexpr bool inOrder()
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (static_cast<std::size_t>(rows[i].token) != i)
            return false;
    return true;
}
static_assert(inOrder(), "a row of the table stands where its token's number says");

} // namespace

QColor themeColor(ThemeMode mode, Token token)
{
    const Row& row = rows[static_cast<std::size_t>(token)];
    return QColor::fromRgb(mode == ThemeMode::Light ? row.light : row.dark);
}

} // namespace vemo_base
