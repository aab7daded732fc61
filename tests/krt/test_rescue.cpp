// What the editor has kept, fetched without it.
#include "rescue/store.h"
#include "tests/krt/tool.h"

TEST_F(Krt, RescueListsAndFetchesWhatWasKept) {
    ::setenv("XDG_STATE_HOME", folder.c_str(), 1);
    auto const kept = bytes_of(fs::path(KRT_EXAMPLES) / "vanha.krt");
    rescue::Store const store(folder / "kehystin");
    EXPECT_EQ(run("rescue"), 0);
    EXPECT_EQ(out, "");
    store.put("s.work", to_file(rescue::Rescue{rescue::What::work, "/koti/vanha.krt",
                                               rescue::time_of(38124.5), 1, false, 0, kept}));
    store.put("rikki.work", "Kehystin-pelastus 1\r\n");
    EXPECT_EQ(run("rescue"), 1);
    EXPECT_EQ(out, "s.work: 17.5.2004 klo 12.00, tallentamaton kortti, /koti/vanha.krt\n");
    EXPECT_NE(err.find("rikki.work: ei ole pelastettu kortti"), std::string::npos);
    EXPECT_EQ(run("rescue s.work -o x.krt"), 0);
    EXPECT_TRUE(bytes_of(folder / "x.krt") == kept);
    EXPECT_EQ(run("rescue rikki.work"), 2);
    EXPECT_EQ(store.names().size(), 2U);
    store.put("\x1b[31m.work",
              to_file(rescue::Rescue{rescue::What::work, "/koti/\x1b.krt", rescue::time_of(38124.5),
                                     2, false, 0, kept}));
    EXPECT_EQ(run("rescue"), 1);
    EXPECT_EQ(out.find('\x1b'), std::string::npos) << out;
    // What cannot be looked into is not empty.
    fs::remove_all(folder / "kehystin");
    write("kehystin", "");
    EXPECT_EQ(run("rescue"), 2);
    EXPECT_NE(err, "");
}
