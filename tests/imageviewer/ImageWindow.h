#pragma once

#include "CommandLine.h"
#include "FakeFrame.h"
#include "FileNames.h"
#include "Forms.h"
#include "PictureBox.h"
#include "ScratchFolder.h"
#include "frmFileOperations.h"
#include "frmImageAbout.h"
#include "frmImageMain.h"
#include "frmScale.h"

#include <QAction>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

/// The image window in a frame, used by its menus, mouse and keyboard, with a folder for pictures. Boxes have
/// to be expected. The screen is 800 by 800 pixels, and a pixel has 15 twips.
class ImageWindow
{
public:
    ImageWindow()
    {
        Forms::registerWindow(QStringLiteral("frmImageMain"), Forms::Instances::One,
                              [] { return new frmImageMain; });
        Forms::registerWindow(QStringLiteral("frmScale"), Forms::Instances::One, [] { return new frmScale; });
        Forms::registerWindow(QStringLiteral("frmFileOperations"), Forms::Instances::One,
                              [] { return new frmFileOperations; });
        Forms::registerWindow(QStringLiteral("frmImageAbout"), Forms::Instances::One,
                              [] { return new frmImageAbout; });
    }
    ~ImageWindow() { setCommandLine({}); }

    static void setCommandLine(const QByteArray &text)
    {
        const char *arguments[] = {"program", text.constData()};
        CommandLine::take(text.isEmpty() ? 1 : 2, arguments);
    }

    void open()
    {
        auto &form = Forms::refer<frmImageMain>();
        form.showModeless();
        m_form = &form;
        QCoreApplication::processEvents();
    }

    bool isOpen() const { return !m_form.isNull(); }
    frmImageMain &form() const { return *m_form; }
    PictureBox &picture() const { return control<PictureBox>("Image1"); }
    ImageSize size() const { return {picture().Width(), picture().Height()}; }
    ImagePlace place() const { return {picture().Left(), picture().Top()}; }
    ImageSize window() const { return {float(form().Width()), float(form().Height())}; }
    bool isMaximized() const { return form().WindowState() == FormState::Maximized; }

    void choose(const char *item) const { this->item(item).trigger(); }
    QAction &item(const char *name) const { return control<QAction>(name); }
    bool isChecked(const char *name) const { return item(name).isChecked(); }

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->member<Control>(QString::fromLatin1(name));
    }

    /// A picture of so many pixels in a new bitmap file of the folder.
    QString addPicture(const QByteArray &name, int width, int height, const QColor &color = Qt::red) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        EXPECT_TRUE(image.save(path(name), "bmp"));
        return path(name);
    }
    QString path(const QByteArray &name) const { return FileNames::fromBytes(scratch.file(name)); }

    /// Opens \a path by the menu.
    void openFile(const QString &path)
    {
        frame.dialogs.expectFileDialog(QStringLiteral("Open")).accept(path);
        choose("mnuFileOpen");
    }
    void openPicture(int width, int height) { openFile(addPicture("picture.bmp", width, height)); }

    ScratchFolder scratch;
    FakeFrame frame;

private:
    QPointer<frmImageMain> m_form;
};

inline void PrintTo(const ImageSize &size, std::ostream *out)
{
    *out << size.width << " x " << size.height;
}

inline void PrintTo(const ImagePlace &place, std::ostream *out)
{
    *out << place.left << ", " << place.top;
}
