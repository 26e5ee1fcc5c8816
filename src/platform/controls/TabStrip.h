#pragma once

#include <QTabWidget>

/// Pages of which one is in front, each with a tab. Tabs are numbered from 0; a number without a tab is
/// RuntimeError 380. Ctrl+Tab brings the next one to the front.
class TabStrip : public QTabWidget
{
    Q_OBJECT

public:
    enum class TabPlace {
        Above, ///< in a row
        Beside ///< in a column on the left, for many tabs
    };

    explicit TabStrip(QWidget *parent = nullptr, TabPlace place = TabPlace::Above);

    /// A new, empty page behind the last one; \a caption may have a mnemonic.
    QWidget *addPage(const QString &caption);
    int Tabs() const { return count(); }

    /// The page in front.
    int Tab() const { return currentIndex(); }
    void setTab(int tab);

    QString TabCaption(int tab) const;
    void setTabCaption(int tab, const QString &caption);
    bool TabEnabled(int tab) const;
    void setTabEnabled(int tab, bool enabled);
    bool TabVisible(int tab) const;
    void setTabVisible(int tab, bool visible);

private:
    int existing(int tab) const;
};
