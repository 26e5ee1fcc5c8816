#pragma once

#include "WebBox.h"

#include <QUrl>
#include <QWidget>

/// The web browser control: it shows a page and moves between pages. Nothing of them is kept on the disk.
///
/// A page may lead to addresses of the web and to about:blank; a file is shown only where Navigate() names
/// it. Titles, addresses and texts are given as the page has them.
class WebControl : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Begins to load \a address. One that the control does not show (of another scheme than http, https,
    /// about:blank and file) changes nothing.
    virtual void Navigate(const QUrl &address) = 0;
    // Without a page in that direction these two do nothing.
    virtual void GoBack() = 0;
    virtual void GoForward() = 0;
    void GoHome() { Navigate(m_home); }
    void GoSearch() { Navigate(m_search); }
    virtual void Refresh() = 0;
    virtual void Stop() = 0;

    /// The page's title, or its address where it has none.
    virtual QString LocationName() const = 0;
    /// The address of the page on show, without a password.
    virtual QUrl LocationURL() const = 0;
    /// A page is being loaded.
    virtual bool Busy() const = 0;

    void setHomeAddress(const QUrl &address) { m_home = address; }
    void setSearchAddress(const QUrl &address) { m_search = address; }

    /// Enlarges what is shown by \a steps, each of a tenth, within 30 % and 300 %; 0 puts the usual size
    /// back.
    virtual void zoom(int steps) = 0;
    /// A file that a page has offered is being received. With the control it is given up, and nothing of it
    /// is left.
    virtual bool isReceiving() const = 0;

public Q_SLOTS:
    // These act on what is selected in the page, or on the field of it that has the focus.
    virtual void undo() = 0;
    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;

Q_SIGNALS:
    /// A page has come in place of another one, or another place in it. The rest of it may still arrive. It
    /// may be the engine's own page, which says why LocationURL() could not be shown.
    void NavigateComplete();
    /// Nothing more arrives of a page, whether all of it has or not; also when the page changes its title
    /// after that.
    void DownloadComplete();
    /// The process that shows the page has died. The control stays usable.
    void PageCrashed();

    // The engine waits for the answer to these three. The control has to exist until the handler returns.

    /// A page shows at most three boxes between two keys or clicks of the user; the further ones are answered
    /// by Cancel.
    void BoxWanted(WebBox &box);
    /// A page offers a file. \a path becomes the place for it, which is replaced; empty refuses the file.
    void SaveWanted(const QString &suggestedName, QString &path);
    /// A page asks for a file of the user's. \a path becomes its name; empty refuses.
    void FileWanted(QString &path);

    /// The file \a path has been received, or has not been for the reason \a failure.
    void Received(const QString &path, const QString &failure);

private:
    QUrl m_home;
    QUrl m_search;
};
