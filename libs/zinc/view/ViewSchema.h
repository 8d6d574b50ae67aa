#pragma once

#include "libs/zinc/view/ViewModel.h"

#include <QStringView>

#include <string_view>

/// Which elements a view may hold, and which attributes each of them takes.
namespace Zinc2D {

enum class PropertyKind {
    Number,
    Color,
    Text,    ///< a literal, or "=" and an expression
    Keyword, ///< one of some words
    Format,  ///< printf-style
    Points,
    File
};

struct PropertyInfo
{
    std::string_view name;
    Property property;
    PropertyKind kind;
    std::string_view words = {}; ///< of a keyword, between blanks
};

struct ElementInfo
{
    std::string_view name;
    ElementType type;
    std::string_view required; ///< attributes, between blanks
    std::string_view optional;
    std::string_view parts = {}; ///< elements in it
};

/// Null where there is no such name.
const PropertyInfo* propertyInfo(QStringView name);
const ElementInfo* elementInfo(QStringView name);

/// Whether a list of words between blanks holds the word.
bool holdsWord(std::string_view words, QStringView word);

/// Whether the element takes the attribute.
bool takes(const ElementInfo& element, QStringView attribute);

} // namespace Zinc2D
