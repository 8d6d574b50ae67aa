#pragma once

#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QTemporaryDir>

#include <memory>

/// What benchmarks work on. A set-up that fails ends the program with a word about it.
namespace KOLT::Bench {

/// A sample card read with the default profile, its first cycle loaded. It lies on the disk as long
/// as this does.
class Card
{
public:
    /// One engine run of that length; 0: the usual card.
    explicit Card(double hours = 0.0);

    const DataSet& dataSet() const { return *container.dataSet(); }

    Profile profile;
    CardContainer container{profile};

private:
    QTemporaryDir m_directory;
};

/// A profile of one device with these elements.
std::unique_ptr<Profile> profileOf(const QByteArray& elements, const QByteArray& lists = {});

} // namespace KOLT::Bench
