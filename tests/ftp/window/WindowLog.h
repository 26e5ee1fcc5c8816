#pragma once

#include <QObject>
#include <QStringList>

class QLabel;
class QWidget;

/// Writes down, in order, what a window's controls do: "+name" for one that is enabled, "-name" for one that
/// is disabled, and each text of its status label, also one that nobody gets to see.
class WindowLog : public QObject
{
public:
    /// \a status is alone in the layout of its parent.
    WindowLog(const QWidget &window, QLabel &status);

    const QStringList &entries() const { return m_entries; }
    QString text() const { return m_entries.join(u' '); }
    /// The status texts alone, joined by "|". Those of a request to the server that repeat those of the
    /// request before are left out.
    QString statusTexts() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class StatusLayout;

    void noteStatus(const QString &status);

    QString m_status; ///< the last one
    QStringList m_entries;
};
