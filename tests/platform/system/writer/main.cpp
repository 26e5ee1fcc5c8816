#include "RegistryFile.h"

#include <QCoreApplication>
#include <cstdio>

namespace {

/// Adds 1 to the number "N" of the key "Count" and says so with a dot.
RegistryResult increment(const RegistryFile &file)
{
    const RegistryResult result = file.change([](RegistryKey &root) {
        RegistryKey &key = root.make({QStringLiteral("Count")});
        const RegistryValue *before = key.value(QStringLiteral("N"));
        const quint32 number = before ? std::get<quint32>(before->data) : 0;
        key.setValue(QStringLiteral("N"), {RegistryType::Number, number + 1});
        return RegistryResult::Ok;
    });
    if (result == RegistryResult::Ok) {
        std::putchar('.');
        std::fflush(stdout);
    }
    return result;
}

} // namespace

/// registry-writer FILE TIMES: the exit code is the first failure's.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const RegistryFile file(arguments.value(1));
    for (int left = arguments.value(2).toInt(); left > 0; --left) {
        const RegistryResult result = increment(file);
        if (result != RegistryResult::Ok)
            return int(result);
    }
    return 0;
}
