#include "ui/LookColors.h"

#include <array>
#include <cstddef>
#include <utility>

namespace KOLT {

namespace {

constexpr QRgb rgb(unsigned value)
{
    return 0xff000000U | value;
}

constexpr std::array tones{
    LookTone{"background", rgb(0xf4f5f6), rgb(0x20262d)},
    LookTone{"panel", rgb(0xffffff), rgb(0x181d23)},
    LookTone{"button", rgb(0xefefef), rgb(0x2c343d)},
    LookTone{"line", rgb(0xd3d8dd), rgb(0x3b4550)},
    LookTone{"text", rgb(0x1b2229), rgb(0xe4e9ee)},
    LookTone{"quiet", rgb(0x5d6873), rgb(0xa3afba)},
    LookTone{"disabled", rgb(0x626c77), rgb(0x939eaa)},
    LookTone{"accent", rgb(0x2f6690), rgb(0x7ab8e8)},
    LookTone{"hover", rgb(0xe3e9ee), rgb(0x2d3741)},
    LookTone{"selection", rgb(0xcfe0ee), rgb(0x2b4f6e)},
    LookTone{"highlight", rgb(0x2f6690), rgb(0x356f9c)},
    LookTone{"highlightText", rgb(0xffffff), rgb(0xffffff)},
    LookTone{"notice", rgb(0xfff3d1), rgb(0x3f3618)},
    LookTone{"error", rgb(0xb3261e), rgb(0xff9a90)},
    LookTone{"strip", rgb(0xe9ecef), rgb(0x2b333c)},
    LookTone{"recorded", rgb(0x7d94a8), rgb(0x6f879c)},
    LookTone{"note", rgb(0x787878), rgb(0x9aa0a6)},
    LookTone{"doubtful", rgb(0xe09200), rgb(0xe09200)},
    LookTone{"wrong", rgb(0xd32f2f), rgb(0xe5534b)},
    LookTone{"good", rgb(0x2e8b57), rgb(0x4caf78)},
    LookTone{"classInfo", rgb(0x2f6690), rgb(0x8cc4ee)},
    LookTone{"classWarning", rgb(0xa65f00), rgb(0xf0b04a)},
    LookTone{"classFault", rgb(0xb3261e), rgb(0xff8f84)},
    LookTone{"classNone", rgb(0x5d6873), rgb(0xa3afba)},
    LookTone{"classText", rgb(0xffffff), rgb(0x10151a)},
    LookTone{"inkAccent", rgb(0x2f6690), rgb(0x7ab8e8)},
    LookTone{"ink", rgb(0x33414f), rgb(0xc3ccd5)},
    LookTone{"inkStrong", rgb(0x1b2229), rgb(0xe4e9ee)},
    LookTone{"inkQuiet", rgb(0x5b6875), rgb(0x9fabb6)},
    LookTone{"inkPaper", rgb(0xf7f8f9), rgb(0x2a323a)},
    LookTone{"inkGold", rgb(0xa8862c), rgb(0xd4b55a)},
    LookTone{"inkGreen", rgb(0x3c8c4a), rgb(0x5cb56c)},
    LookTone{"inkRed", rgb(0xc0392b), rgb(0xea6a5d)},
    LookTone{"inkWhite", rgb(0xffffff), rgb(0x181d23)},
};
static_assert(tones.size() == static_cast<std::size_t>(Tone::InkWhite) + 1);

Look shownLook = Look::Light;

QColor toneIn(Look look, Tone tone)
{
    return tones[static_cast<std::size_t>(tone)].in(look);
}

} // namespace

std::span<const LookTone> lookTones()
{
    return tones;
}

Look currentLook()
{
    return shownLook;
}

void setCurrentLook(Look look)
{
    shownLook = look;
}

QColor lookColor(Tone tone)
{
    return toneIn(shownLook, tone);
}

QPalette lookPalette(Look look)
{
    const auto of = [look](Tone tone) { return toneIn(look, tone); };
    QPalette palette(of(Tone::Button), of(Tone::Background)); // derives the shades of frames
    const std::pair<QPalette::ColorRole, Tone> roles[] = {
        {QPalette::WindowText, Tone::Text},
        {QPalette::Base, Tone::Panel},
        {QPalette::AlternateBase, Tone::Background},
        {QPalette::Text, Tone::Text},
        {QPalette::ButtonText, Tone::Text},
        {QPalette::PlaceholderText, Tone::Quiet},
        {QPalette::Highlight, Tone::Highlight},
        {QPalette::HighlightedText, Tone::HighlightText},
        {QPalette::Link, Tone::Accent},
        {QPalette::LinkVisited, Tone::Accent},
        {QPalette::ToolTipBase, Tone::Text},
        {QPalette::ToolTipText, Tone::Background}};
    for (const auto& [role, tone] : roles)
        palette.setColor(role, of(tone));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, of(Tone::Disabled));
    palette.setColor(QPalette::Disabled, QPalette::Base, of(Tone::Background));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, of(Tone::Line));
    return palette;
}

Look lookOf(const QPalette& palette)
{
    const auto gray = [&](QPalette::ColorRole role) { return qGray(palette.color(role).rgb()); };
    return gray(QPalette::WindowText) > gray(QPalette::Window) ? Look::Dark : Look::Light;
}

} // namespace KOLT
