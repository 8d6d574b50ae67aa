#pragma once

#include "export/ExportOptions.h"
#include "export/ui/DialogExport.h"
#include "profile/Profile.h"
#include "record/SampleSpan.h"

class QCheckBox;
class QComboBox;
class QRadioButton;
class QSpinBox;

namespace KOLT {

/// Exports a CSV table: its options, with the resulting number of rows and file size.
class DialogExportCsv : public DialogExport
{
    Q_OBJECT

public:
    DialogExportCsv(const Profile& profile, Source source, const CsvOptions& options,
                    QWidget* parent = nullptr);

    /// The options as set in the dialog.
    CsvOptions options() const;

protected:
    ExportStatus write(QIODevice& device, const ExportProgress& progress) override;

private:
    void createOptions();
    void setOptions(const CsvOptions& options);
    void showEstimate();

    const Profile& m_profile;
    const std::optional<SampleSpan> m_span; ///< computed once, as it visits every sample
    QComboBox* m_separator = nullptr;
    QCheckBox* m_comma = nullptr;
    QCheckBox* m_codes = nullptr;
    QSpinBox* m_resolution = nullptr;
    QRadioButton* m_all = nullptr;
    QRadioButton* m_selected = nullptr;
};

} // namespace KOLT
