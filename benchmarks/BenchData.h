#pragma once

#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QTemporaryDir>

#include <memory>

/// Data for benchmarks. If it cannot be prepared, the program ends with a message.
namespace KOLT::Bench {

/// A sample card in a temporary directory, read with the default profile, with its first cycle
/// loaded.
class Card
{
public:
    /// With one engine run of that length; 0: the standard card.
    explicit Card(double hours = 0.0);

    const DataSet& dataSet() const { return *container.dataSet(); }

    Profile profile;
    CardContainer container{profile};

private:
    QTemporaryDir m_directory;
};

/// A profile with one device that has the given elements.
std::unique_ptr<Profile> profileOf(const QByteArray& elements, const QByteArray& lists = {});

} // namespace KOLT::Bench
