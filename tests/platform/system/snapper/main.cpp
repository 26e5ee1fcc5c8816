#include "RuntimeError.h"
#include "Snapper.h"

#include <QCoreApplication>
#include <QTextStream>

// What the suite does with snapshots, for a test with a file system of its own:
//
//     snapshot-actions list
//     snapshot-actions create DESCRIPTION

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream out(stdout);
    try {
        if (arguments.value(1) == QLatin1String("create"))
            Snapper::create(arguments.value(2));
        else
            for (const Snapper::Snapshot &snapshot : Snapper::list())
                out << snapshot.number << ' ' << snapshot.time.toSecsSinceEpoch() << ' '
                    << snapshot.description << '\n';
    } catch (const RuntimeError &error) {
        out << error.number() << ' ' << error.description() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
