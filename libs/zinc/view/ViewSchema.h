#pragma once

#include "libs/zinc/view/ViewModel.h"

#include <QStringView>

#include <string_view>

/// The elements of a view file and the attributes that each of them takes.
namespace Zinc2D {

enum class PropertyKind {
    Number,
    Color,
    Text,    ///< a literal, or "=" and an expression
    Keyword, ///< one of a list of words
    Format,  ///< printf-style
    Points,
    File
};

struct PropertyInfo
{
    std::string_view name;
    Property property;
    PropertyKind kind;
    std::string_view words = {}; ///< for keywords, separated by spaces
};

struct ElementInfo
{
    std::string_view name;
    ElementType type;
    std::string_view required; ///< attributes, separated by spaces
    std::string_view optional;
    std::string_view parts = {}; ///< elements that it may contain
};

/// Null if there is no such name.
const PropertyInfo* propertyInfo(QStringView name);
const ElementInfo* elementInfo(QStringView name);

/// Whether a list of words separated by spaces contains the word.
bool holdsWord(std::string_view words, QStringView word);

/// Whether the element takes the attribute.
bool takes(const ElementInfo& element, QStringView attribute);

} // namespace Zinc2D
