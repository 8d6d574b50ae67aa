#pragma once

#include <QPalette>

#include <span>

namespace KOLT {

/// How the windows look. Colours that mean a state, and those of graph, map and instruments, are
/// the same in both.
enum class Look { Light, Dark };

/// What the windows are painted with, in the order of lookTones().
enum class Tone {
    Background, ///< of windows
    Panel,      ///< of lists, texts and fields
    Button,
    Line, ///< frames and separators
    Text,
    Quiet, ///< text of less weight
    Disabled,
    Accent,
    Hover,
    Selection, ///< behind Text
    Highlight, ///< behind HighlightText: menus, chosen entries
    HighlightText,
    Notice,   ///< behind Text
    Error,    ///< text that tells a mistake
    Strip,    ///< behind marks along the time, and behind Text
    Recorded, ///< bar of recorded time
    Note,
    Doubtful,
    Wrong,
    Good,
    ClassInfo, ///< the classes of faults, behind ClassText
    ClassWarning,
    ClassFault,
    ClassNone,
    ClassText,
    InkAccent, ///< from here on: what icons are drawn with
    Ink,
    InkStrong,
    InkQuiet,
    InkPaper,
    InkGold,
    InkGreen,
    InkRed,
    InkWhite
};

/// One colour of both looks. The style sheet knows it by its name, as "$(name)".
struct LookTone
{
    const char* name;
    QRgb light;
    QRgb dark;

    QRgb in(Look look) const { return look == Look::Dark ? dark : light; }
};

/// All tones.
std::span<const LookTone> lookTones();

/// The look of the program; light at first.
Look currentLook();
void setCurrentLook(Look look);

/// In the current look.
QColor lookColor(Tone tone);

/// The palette of a look, for all widgets.
QPalette lookPalette(Look look);

/// Whether texts are lighter than their ground.
Look lookOf(const QPalette& palette);

} // namespace KOLT
