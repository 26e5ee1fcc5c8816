#pragma once

#include <QStringList>

/// One ctest entry runs the tests of one source file: test-word --file=tst_frmDocument.cpp.
namespace TestFile {

/// Leaves only the tests of the file that \a arguments name, none where the file has none; all without such
/// an argument. Called after InitGoogleTest(). \return false where no test is left
bool select(const QStringList &arguments);

} // namespace TestFile
