// SPDX-License-Identifier: Apache-2.0
#include "platform/JsonDefaults.h"
#include "platform/linux/contacts/LinuxContactStore.h"
#include "platform/sim/MemoryFiles.h"
#include "platform/sim/VirtualExecutor.h"
#include "platform/sim/VirtualScheduler.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ContactFoldersTest : public testing::Test {
protected:
    void write(const QString& path, const QByteArray& content) const {
        const QString full = home.filePath(path);
        ASSERT_TRUE(QDir().mkpath(full.section(u'/', 0, -2)));
        QFile file(full);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
    void person(const QString& path, const char* name) const {
        write(path, QByteArray("BEGIN:VCARD\nVERSION:3.0\nFN:") + name + "\nEND:VCARD\n");
    }
    std::vector<std::string> everybody() {
        std::vector<std::string> names;
        const auto fetch = store.fetch([&](const std::vector<platform::Contact>& contacts) {
            for (const auto& contact : contacts)
                names.push_back(contact.formattedName.toStdString());
        });
        EXPECT_THAT(names, IsEmpty()) << "from inside the call";
        scheduler.advanceTo(scheduler.now() + 1s);
        std::ranges::sort(names);
        return names;
    }

    QTemporaryDir home;
    platform::sim::MemoryFiles files;
    platform::JsonDefaults defaults{files, u"/home/defaults.json"_s};
    sim::VirtualScheduler scheduler;
    sim::VirtualExecutor executor{scheduler};
    // Nobody listens at this bus.
    LinuxContactStore store{
        executor, defaults,
        PersonFolders{home.path(), home.filePath(u".config"_s), home.filePath(u".local/share"_s)},
        AddressBookService(u"unix:path="_s + home.filePath(u"no-bus"_s))};
};

TEST_F(ContactFoldersTest, areTheUsualOnesThoseOfOtherProgramsAndThoseNamed) {
    EXPECT_EQ(store.availability().state, platform::Availability::State::unavailable);
    EXPECT_FALSE(store.availability().remedy.isEmpty());
    EXPECT_THAT(everybody(), IsEmpty());

    person(u".local/share/contacts/family/1.vcf"_s, "Ada");
    person(u".contacts/2.VCF"_s, "Bert");
    person(u"khard book/3.vcf"_s, "Cleo");
    person(u"sync/4.vcf"_s, "Dora");
    person(u"calendars/5.vcf"_s, "not of a storage of contacts");
    person(u"mine/deep/6.vcf"_s, "Emil");
    person(u"mine/7.txt"_s, "not a vCard file");
    write(u".config/khard/khard.conf"_s,
          "[addressbooks]\n[[family]]\npath = \"~/khard book/\"\n[[again]]\npath = ~/.contacts\n"
          "[general]\npath = ~/calendars\n");
    write(u".config/vdirsyncer/config"_s,
          "[storage cal]\ntype = \"filesystem\"\npath = \"~/calendars\"\nfileext = \".ics\"\n"
          "[storage card]\ntype = \"filesystem\"\nfileext = \".vcf\"\npath = \"$HOME/sync\"\n");
    (void)defaults.setValue(QString::fromLatin1(LinuxContactStore::foldersKey),
                            QJsonArray{u"~/mine/deep"_s, u"~/mine"_s, 7, u"/nowhere"_s});
    EXPECT_EQ(store.availability().state, platform::Availability::State::available);
    EXPECT_THAT(everybody(), ElementsAre("Ada", "Bert", "Cleo", "Dora", "Emil"));
}

TEST_F(ContactFoldersTest, whatCannotBeReadIsNobodyAndADroppedFetchTellsNothing) {
    person(u".contacts/1.vcf"_s, "Ada");
    ASSERT_TRUE(QDir(home.path()).mkpath(u".contacts/folder.vcf"_s));
    ASSERT_TRUE(QFile::link(home.filePath(u"gone"_s), home.filePath(u".contacts/dangling.vcf"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, home.filePath(u".contacts/endless.vcf"_s)));
    ASSERT_TRUE(QFile::link(home.path(), home.filePath(u".contacts/loop"_s)));
    write(u".config/khard/khard.conf"_s, QByteArray("[addressbooks\npath\n= x\n[[\n\0", 24));
    EXPECT_THAT(everybody(), ElementsAre("Ada"));
    bool told = false;
    auto fetch = store.fetch([&](const auto&) { told = true; });
    fetch.reset();
    scheduler.advanceTo(scheduler.now() + 1s);
    EXPECT_FALSE(told);
}

} // namespace
} // namespace skipnest::linuxdesktop
