#pragma once

#include "profile/Profile.h"
#include "tests/support/TestFiles.h"

namespace KOLT::Test {

/// Loads a profile from the XML inside its root element.
inline bool loadProfile(Profile& profile, const QByteArray& content, const QString& variant = {})
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("Profile.xml"));
    return writeFile(path, "<KorvanProfile>" + content + "</KorvanProfile>") &&
           profile.loadProfil(path, variant);
}

/// The file of a profile whose only parameter is "New", to be installed.
constexpr const char* newProfile =
    "<KorvanProfile><Device name='E'><Parameter name='New' id='1'/></Device></KorvanProfile>";

/// A profile with one device "D" that holds the parameters given as XML attributes.
inline QByteArray device(std::initializer_list<QByteArray> parameters)
{
    QByteArray xml = "<Device name='D'>";
    for (const QByteArray& attributes : parameters)
        xml += "<Parameter " + attributes + "/>";
    return xml + "</Device>";
}

/// A threshold list with one threshold, its values given as XML attributes.
inline QByteArray threshold(const QByteArray& name, std::initializer_list<QByteArray> values)
{
    QByteArray xml = "<ThresholdList><Threshold name='" + name + "'>";
    for (const QByteArray& attributes : values)
        xml += "<Value " + attributes + "/>";
    return xml + "</Threshold></ThresholdList>";
}

/// A list with one unit conversion.
inline QByteArray unit(const QByteArray& attributes)
{
    return "<UnitConversions><Unit " + attributes + "/></UnitConversions>";
}

} // namespace KOLT::Test
