#pragma once

#include "WebBox.h"

#include <QWebEnginePage>

class WebProfile;

/// One control's page: decides where pages may lead and refuses what they may not have. A window that a page
/// opens is a page in the place of this one.
class EnginePage : public QWebEnginePage
{
    Q_OBJECT

public:
    explicit EnginePage(WebProfile &profile);

    /// Whether the control shows \a address at the user's word.
    static bool isShown(const QUrl &address);

    /// The page may show boxes again.
    void noteUserInput() { m_boxesLeft = mostBoxes; }

Q_SIGNALS:
    void BoxWanted(WebBox &box);
    void FileWanted(QString &path);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    void javaScriptAlert(const QUrl &origin, const QString &text) override;
    bool javaScriptConfirm(const QUrl &origin, const QString &text) override;
    bool javaScriptPrompt(const QUrl &origin, const QString &text, const QString &value,
                          QString *result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int,
                                  const QString &) override
    {}
    QStringList chooseFiles(FileSelectionMode mode, const QStringList &oldFiles,
                            const QStringList &acceptedMimeTypes) override;

private:
    static constexpr int mostBoxes = 3; ///< between two keys or clicks

    void refusePermissions();
    void openHere(QWebEngineNewWindowRequest &request);
    void ask(WebBox &box);

    int m_boxesLeft = mostBoxes;
};
