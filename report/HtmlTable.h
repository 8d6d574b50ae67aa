#pragma once

#include <QString>
#include <QStringList>

namespace KOLT {

/// A paragraph, or a heading of another tag; empty without text.
QString htmlParagraph(const QString& text, const char* tag = "p", const char* style = "");

/// A table of texts whose headings are repeated on each page.
class HtmlTable
{
public:
    /// A letter for each column: "l" and "r" for its alignment, "L" and "R" where it must not be
    /// wrapped, "c" for codes.
    /// Texts are a little smaller with `isDense`.
    explicit HtmlTable(const char* columns, const QStringList& headings = {}, bool isDense = false);

    /// A null text extends the cell before it.
    void add(const QStringList& cells, bool isBold = false);

    /// The table; empty without rows.
    QString html() const;

private:
    QString row(const QStringList& cells, bool isHead, const char* color) const;

    const char* m_columns;
    bool m_isDense;
    QString m_head;
    QString m_rows;
    int m_count = 0;
};

} // namespace KOLT
