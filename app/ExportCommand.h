#pragma once

#include "app/MainActions.h"

class QWidget;

namespace KOLT {

class Profile;
class SettingsStore;
struct DataSet;
struct ExportSubject;

/// Opens the dialog of an export command, with the stored options, until the data set is exported
/// or the user cancels. Stores what the user chose. Returns the path of the exported file, empty
/// when there is none. `note` says what is doubtful in the recording. Neither profile nor data set
/// may change meanwhile.
QString runExport(Command command, SettingsStore& settings, const Profile& profile,
                  const DataSet& dataSet, const ExportSubject& subject, const QString& note,
                  QWidget* parent);

} // namespace KOLT
