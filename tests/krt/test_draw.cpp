// Pictures of cards. That they are what the editor paints is looked at where the editor is.
#include "tests/krt/tool.h"

#include <sstream>
#include <sys/resource.h>

namespace {

/// A big-endian number of a PNG.
int number_at(std::string const& bytes, std::size_t at) {
    int number = 0;
    for (std::size_t i = at; i < at + 4 && i < bytes.size(); ++i)
        number = number * 256 + static_cast<unsigned char>(bytes[i]);
    return number;
}

std::pair<int, int> size_of_png(std::string const& bytes) {
    EXPECT_TRUE(bytes.starts_with("\x89PNG"));
    return {number_at(bytes, 16), number_at(bytes, 20)};
}

int count_of(std::string const& what, std::string const& in) {
    int found = 0;
    for (auto at = in.find(what); at != std::string::npos; at = in.find(what, at + 1))
        ++found;
    return found;
}

/// An SVG picture of 100 by 100 with this inside.
std::string drawing(std::string const& inside) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" "
           "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"100\" height=\"100\">" +
           inside + "</svg>";
}

class KrtDraw : public Krt {
  protected:
    /// A card whose every field shows this picture.
    void write_gallery(std::string const& name, std::string const& picture) {
        std::istringstream from(bytes_of(fs::path(KRT_EXAMPLES) / "kolmesataa.krt"));
        std::string card;
        for (std::string line; std::getline(from, line);) {
            auto const value = line.find(").style=") == std::string::npos ? ").list=" : ").style=";
            auto const at = line.find(value);
            if (at != std::string::npos)
                line = line.substr(0, at) + value +
                       (value == std::string(").style=") ? "5" : picture) + '\r';
            card += line + '\n';
        }
        write(name, card);
    }
};

} // namespace

TEST_F(Krt, DrawsInEachFormat) {
    take("asiakkaat.krt");
    ASSERT_EQ(run("draw asiakkaat.krt -o a.png"), 0) << err;
    EXPECT_EQ(out + err, "");
    // The card is 646 by 417; its window's frame is no part of the picture.
    EXPECT_EQ(size_of_png(bytes_of(folder / "a.png")), std::pair(638, 394));
    ASSERT_EQ(run("draw - -o b.PNG --scale 2", " <asiakkaat.krt"), 0) << err;
    EXPECT_EQ(size_of_png(bytes_of(folder / "b.PNG")), std::pair(1276, 788));
    ASSERT_EQ(run("draw asiakkaat.krt -o -"), 0);
    EXPECT_TRUE(out == bytes_of(folder / "a.png"));
    ASSERT_EQ(run("draw asiakkaat.krt -o c.svg --scale 0.5"), 0);
    auto const svg = bytes_of(folder / "c.svg");
    EXPECT_NE(svg.find("width=\"319\" height=\"197\""), std::string::npos);
    for (auto const* const text : {">Yhteystiedot<", ">Sähköposti<", "<title>Asiakkaat<"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    ASSERT_EQ(run("draw asiakkaat.krt -o d.pdf"), 0);
    auto const pdf = bytes_of(folder / "d.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF"));
    EXPECT_NE(pdf.find("/FontFile2"), std::string::npos); // letters, not their pixels
    EXPECT_NE(pdf.find("MediaBox [0 0 479.0"), std::string::npos);
    // Nothing is left beside the pictures, and one that cannot be written is told.
    EXPECT_EQ(run("draw asiakkaat.krt -o ei/ole.png"), 2);
    EXPECT_EQ(err, "krt: ei/ole.png: ei voi kirjoittaa: tiedostoa tai hakemistoa ei ole\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 7);
}

TEST_F(Krt, DrawSaysWhatItRepairsAndLeavesOut) {
    take("rikki.krt");
    EXPECT_EQ(run("draw rikki.krt -o a.png"), 1);
    EXPECT_NE(err.find("krt: rikki.krt: card.transp: virheellinen arvo"), std::string::npos);
    EXPECT_LE(std::count(err.begin(), err.end(), '\n'), 12);
    EXPECT_EQ(size_of_png(bytes_of(folder / "a.png")), std::pair(292, 277));
    take("vanha.krt");
    EXPECT_EQ(run("draw vanha.krt -o b.png"), 0);
    EXPECT_EQ(err, "");
    write_changed("e.krt", "asiakkaat.krt", "card.fields=38", "card.fields=0");
    EXPECT_EQ(run("draw e.krt -o e.png"), 1); // its roles name fields
    EXPECT_EQ(size_of_png(bytes_of(folder / "e.png")), std::pair(638, 394));
    // A picture beside the card is found from anywhere; one of that size would fill the memory.
    fs::create_directory(folder / "k");
    write("k/kuva.bmp", picture_header(8000, 8000));
    write_changed("k/c.krt", "tuotteet.krt", "card.picture=          ", "card.picture=+kuva.bmp");
    EXPECT_EQ(run("draw k/c.krt -o c.png"), 1);
    EXPECT_EQ(err, "krt: k/c.krt: kuvaa k/kuva.bmp ei voi näyttää: Kuva on liian suuri, kortin "
                   "kuvissa saa olla yhteensä 8 megapikseliä\n");
}

TEST_F(KrtDraw, EachPictureStandsOnceInAnSvg) {
    // Of the size that the card may have together; used anew each time it would be gigabytes.
    write("k.bmp", picture_header(2800, 2800) + std::string(3 * 2800 * 2800, '\x5a'));
    write_gallery("a.krt", "k.bmp");
    ASSERT_EQ(run("draw a.krt -o a.svg"), 0) << err;
    auto const svg = bytes_of(folder / "a.svg");
    EXPECT_EQ(count_of("data:image/png", svg), 1);
    EXPECT_EQ(count_of("<use ", svg), 300);
    EXPECT_LT(svg.size(), 1'000'000U);
}

TEST_F(KrtDraw, LeavesOutDrawingsThatReachBeyondThemselves) {
    write("k.bmp", picture_header(1, 1) + std::string(4, '\0'));
    write("k.css", "rect { fill: red }");
    write("k.svg", drawing("<rect width='9' height='9' fill='#c0ffee'/>"));
    write_gallery("a.krt", "k.svg");
    EXPECT_EQ(run("draw a.krt -o a.svg"), 0) << err;
    EXPECT_EQ(count_of("data:image/png", bytes_of(folder / "a.svg")), 1);

    std::string many;
    for (int i = 0; i < 30'000; ++i)
        many += "<g/>";
    std::string const image = "<image width='9' height='9' xlink:href='k.bmp'/>";
    for (auto const& hostile :
         {drawing(image), drawing("<g><g>" + image + "</g></g>"), drawing(many),
          drawing("<!-- " + std::string(2'000'000, ' ') + " -->"),
          drawing("<image width='9' height='9' xlink:href='data:image/png;base64,AAAA'/>"),
          "<!DOCTYPE svg [<!ENTITY i \"" + image + "\">]>" + drawing("&i;"),
          "<?xml version='1.0'?><?xml-stylesheet type='text/css' href='k.css'?>" + drawing(""),
          "<?xml version='1.0'?>" + drawing("<x:y/>" + image)}) {
        write("k.svg", hostile);
        EXPECT_EQ(run("draw a.krt -o a.svg"), 1) << hostile.substr(0, 200);
        EXPECT_TRUE(err.starts_with("krt: a.krt: kuvaa k.svg ei voi näyttää: SVG-kuva")) << err;
        EXPECT_EQ(count_of("\n", err), 1) << err; // once for all fields
        EXPECT_EQ(count_of("data:", bytes_of(folder / "a.svg")), 0);
    }
}

TEST_F(Krt, DrawKeepsItsMemorySmall) {
    write_changed("a.krt", "kolmesataa.krt", "card.width=1884", "card.width=3000");
    write_changed("b.krt", "kolmesataa.krt", "card.height=994", "card.height=3000");
    for (auto const* const options :
         {"a.krt -o a.png --scale 1.3", "b.krt -o b.svg --links", "b.krt -o b.pdf --scale 8"})
        EXPECT_EQ(run(std::string("draw ") + options), 0) << err;
    EXPECT_EQ(run("draw a.krt -o c.png --scale 8"), 2);
    EXPECT_EQ(err, "krt: a.krt: kuvasta tulee liian suuri, pienennä valitsinta --scale\n");
#ifndef __SANITIZE_ADDRESS__ // which takes several times as much for itself
    rusage used{};
    getrusage(RUSAGE_CHILDREN, &used);
    EXPECT_LT(used.ru_maxrss, 100 * 1024);
#endif
}

TEST_F(KrtDraw, AThumbnailIsSmallAndAlwaysAPicture) {
    take("asiakkaat.krt");
    ASSERT_EQ(run("draw --size 128 -o 'oma kuva' -- asiakkaat.krt"), 0) << err;
    EXPECT_EQ(size_of_png(bytes_of(folder / "oma kuva")), std::pair(128, 79));
    take("kolmesataa.krt");
    ASSERT_EQ(run("draw --size 256 -o - kolmesataa.krt"), 0) << err;
    EXPECT_EQ(size_of_png(out).first, 256);
    take("vanha.krt"); // a card is not made larger, and an old one is no broken one
    ASSERT_EQ(run("draw --size 1024 -o a.svg vanha.krt"), 0) << err;
    ASSERT_EQ(run("draw -o b.png vanha.krt"), 0) << err;
    EXPECT_TRUE(bytes_of(folder / "a.svg") == bytes_of(folder / "b.png"));
    EXPECT_EQ(run("draw --size 8 -o c.png vanha.krt"), 2);
    EXPECT_EQ(run("draw --size 64 --scale 2 -o c.png vanha.krt"), 2);
}

TEST_F(KrtDraw, AThumbnailOfABrokenOrHostileCardIsNotWritten) {
    take("rikki.krt");
    auto const whole = bytes_of(fs::path(KRT_EXAMPLES) / "kolmesataa.krt");
    write("puolikas.krt", whole.substr(0, whole.size() / 2));
    write("tyhja.krt", "");
    write("muu.krt", picture_header(100, 100));
    fs::create_directory(folder / "kansio.krt");
    ASSERT_EQ(mkfifo((folder / "putki.krt").c_str(), 0600), 0); // nobody ever writes to it
    fs::create_symlink("/dev/zero", folder / "loputon.krt");
    for (auto const* const card :
         {"rikki", "puolikas", "tyhja", "muu", "kansio", "putki", "loputon", "ei_ole"}) {
        EXPECT_EQ(run(std::string("draw --size 128 -o kuva.png ") + card + ".krt"), 1) << card;
        EXPECT_FALSE(fs::exists(folder / "kuva.png")) << card;
    }
}

TEST_F(KrtDraw, WhatPaintsAThumbnailForTooLongEndsWithAllThatItStarted) {
    fs::copy_file(KRT_PROGRAM, folder / "krt");
    write("krt-draw", "#!/bin/sh\nsleep 60 &\necho $! > started\nwait\n");
    fs::permissions(folder / "krt-draw", fs::perms::owner_all);
    take("asiakkaat.krt");
    EXPECT_EQ(run("--version", " && ./krt draw --size 128 asiakkaat.krt -o kuva.png"), 1);
    EXPECT_FALSE(fs::exists(folder / "kuva.png"));
    // Whoever sees to orphans may not have buried it yet.
    EXPECT_NE(
        run("--version", " && sleep 0.1 && grep -q 'State:.[^Z]' /proc/$(cat started)/status"), 0);
}
