#pragma once

#include "Contact.h"

/// A contact with something in each of its parts, and every sign that a format has to escape.
inline Contact fullContact()
{
    const auto text = [](const char *words) { return QString::fromUtf8(words); };
    return {
        .salutation = text("Mr."),
        .name = text("J\u00F6rg O'Neil, jr.; \"Jo\" \\ {x}"),
        .nickName = text("Jo,Jojo"),
        .group = text("Friends & Family"),
        .comment = text("first line\nsecond: with, signs; and \\n no line end, \u65E5\u672C\u8A9E \U0001F600 "
                        "and so on for a while"),
        .birthDate = QDate(1999, 9, 5),
        .eMails = {text("a@example.org"), text("b+c@example.org")},
        .home = {text("1 Road\nFlat 2"), text("Dover"), text("Kent"), text("CT16 1AA")},
        .homePhone1 = text("+44 1"),
        .homePhone2 = text("(2) 3/4"),
        .homeMobile = text("07 1"),
        .work = {text("2 Lane"), text("K\u00F6ln; Deutz"), text("NRW"), text("50667")},
        .workPhone1 = text("5"),
        .workPhone2 = text("6"),
        .workFax = text("7"),
        .workMobile = text("8"),
        .company = text("Works; Sons, Ltd"),
        .post = text("Boss, top"),
        .department = text("R&D; lab"),
    };
}
