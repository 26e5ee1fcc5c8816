#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "ServerAddress.h"
#include "TransferError.h"

#include <gtest/gtest.h>

TEST(ServerAddress, ReadsTheFormsOfAServer)
{
    const struct
    {
        const char *text;
        QByteArray host;
        int port;
        bool isEncrypted;
    } cases[] = {
        {"ftp.example.org", "ftp.example.org", 21, false},
        {" host ", "host", 21, false},
        {"host:2121", "host", 2121, false},
        {"my_server", "my_server", 21, false},
        {"127.0.0.1:65535", "127.0.0.1", 65535, false},
        {"ftp://host", "host", 21, false},
        {"FTP://Host/", "Host", 21, false},
        {"ftp://host:22/", "host", 22, false},
        {"ftps://host", "host", 21, true},
        {"ftps://host:990/", "host", 990, true},
        {"[::1]", "::1", 21, false},
        {"ftps://[2001:db8::1]:2121/", "2001:db8::1", 2121, true},
        {"b\u00fccher.example", "xn--bcher-kva.example", 21, false},
    };
    for (const auto &row : cases) {
        const ServerAddress address = ServerAddress::parse(QString::fromUtf8(row.text));
        EXPECT_EQ(address.host.toLower(), row.host.toLower()) << row.text;
        EXPECT_EQ(address.port, row.port) << row.text;
        EXPECT_EQ(address.isEncrypted, row.isEncrypted) << row.text;
    }
}

TEST(ServerAddress, RefusesAnythingElse)
{
    const auto number = [](const char *text) {
        return errorNumberOf([&] { ServerAddress::parse(QString::fromUtf8(text)); });
    };
    for (const char *text : {"http://host", "sftp://host/", "gopher://host", "file:///etc"})
        EXPECT_EQ(number(text), TransferError::UnknownScheme) << text;
    for (const char *text : {"",           " ",
                             "host:",      "host:0",
                             "host:65536", "host:99999",
                             "host:21x",   "host/folder",
                             "user@host",  "ftp://user:pw@host/",
                             "ftp://",     "ftp://host//",
                             "two words",  "::1",
                             "[::1",       "[host]",
                             "[1.2.3.4]",  "-host",
                             "ho%73t",     "host?x",
                             "host#x",     "a\u0001b",
                             "<b>x</b>"})
        EXPECT_EQ(number(text), TransferError::InvalidUrl) << text;
}
