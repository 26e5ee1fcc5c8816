#include "NumberedFile.h"

#include <QDir>
#include <QFileInfo>

QString NumberedFile::next(const QString &path, int &number)
{
    const QFileInfo file(path);
    const QString start = file.dir().filePath(file.completeBaseName()) + u'-';
    const QString ending = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    while (QFileInfo::exists(start + QString::number(number) + ending))
        ++number;
    return start + QString::number(number) + ending;
}
