#include "PrintServer.h"

#include "Files.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const QString program = QStringLiteral("/usr/sbin/cupsd");

/// A printer of A4 and A5 paper that takes PDF.
const char ppd[] = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TEST.PPD"
*Manufacturer: "Test"
*Product: "(Test)"
*ModelName: "Test"
*ShortNickName: "Test"
*NickName: "Test"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*Throughput: "1"
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "17.53 36.2 577.47 805.8"
*ImageableArea A5/A5: "17.53 36.2 402.47 558.8"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension A5/A5: "420 595"
*DefaultFont: Courier
*Font Courier: Standard "(1.05)" Standard ROM
)PPD";

const char settings[] = R"(Listen @/socket
LogLevel warn
Browsing No
WebInterface No
DefaultAuthType None
PreserveJobHistory Yes
PreserveJobFiles Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

const char places[] = R"(ServerRoot @
StateDir @
CacheDir @
RequestRoot @/spool
TempDir @/tmp
AccessLog @/access
ErrorLog @/errors
PageLog @/pages
FileDevice Yes
Sandboxing Relaxed
)";

const char printers[] = R"(<DefaultPrinter Study>
Info Study
DeviceURI file:///dev/null
State Idle
Accepting Yes
Shared No
JobSheets none none
</DefaultPrinter>
<Printer Attic>
Info Attic
DeviceURI file:///dev/null
State Idle
Accepting Yes
Shared No
JobSheets none none
</Printer>
)";

bool answers(const QByteArray &name)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
    const int client = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool isThere = ::connect(client, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    ::close(client);
    return isThere;
}

} // namespace

const char *PrintServer::missing()
{
    if (!QFileInfo::exists(program))
        return "cupsd, the print server, is not installed";
    return ::geteuid() == 0 ? nullptr : "only root may start a print server";
}

PrintServer::PrintServer()
{
    writeFiles();
    m_server.setProcessChannelMode(QProcess::ForwardedChannels);
    m_server.start(program, {QStringLiteral("-f"), QStringLiteral("-c"), file(QStringLiteral("cupsd.conf")),
                             QStringLiteral("-s"), file(QStringLiteral("cups-files.conf"))});
    const QByteArray socket = file(QStringLiteral("socket")).toUtf8();
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers(socket); }, 30000));
    qputenv("CUPS_SERVER", socket);
}

PrintServer::~PrintServer()
{
    stop();
}

void PrintServer::stop()
{
    m_server.terminate();
    m_server.waitForFinished();
}

void PrintServer::writeFiles() const
{
    for (const char *folder : {"spool", "tmp", "ppd"})
        QDir(m_folder.path()).mkdir(QLatin1String(folder));
    const auto put = [&](const char *name, QByteArray text) {
        Files::write(file(QLatin1String(name)), text.replace("@", m_folder.path().toUtf8()));
    };
    put("cupsd.conf", settings);
    put("cups-files.conf", places);
    put("printers.conf", printers);
    put("ppd/Study.ppd", ppd);
    put("ppd/Attic.ppd", ppd);
}

int PrintServer::jobs() const
{
    return int(QDir(file(QStringLiteral("spool"))).entryList({QStringLiteral("d*")}, QDir::Files).size());
}

QString PrintServer::document(int number) const
{
    return file(QStringLiteral("spool/d%1-001").arg(number, 5, 10, QLatin1Char('0')));
}

QByteArray PrintServer::ticket(int number) const
{
    const QString name = file(QStringLiteral("spool/c%1").arg(number, 5, 10, QLatin1Char('0')));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo::exists(name); }, 30000)); // written a little later
    return Files::read(name);
}
