// Pages of cards, and what draw refuses by itself. What a browser makes of a page is looked at in
// one, by form.py.
#include "tests/krt/tool.h"

namespace {

using namespace std::string_literals;

/// The heads of picture files, of 40 by 30 pixels.
auto const png = "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\0\x28\0\0\0\x1e"s;
auto const gif = "GIF89a\x28\0\x1e\0"s;
auto const jpeg = "\xff\xd8\xff\xe0\0\x04xx\xff\xc0\0\x11\x08\0\x1e\0\x28\3"s;

} // namespace

TEST_F(Krt, DrawNeedsTheProgramBesideIt) {
    fs::copy_file(KRT_PROGRAM, folder / "krt");
    take("asiakkaat.krt");
    EXPECT_EQ(run("--version", " && ./krt draw asiakkaat.krt -o x.png >out 2>err"), 2);
    EXPECT_EQ(err, "krt: krt-draw: piirtävää ohjelmaa ei ole asennettu krt:n viereen\n");
    EXPECT_FALSE(fs::exists(folder / "x.png"));
}

TEST_F(Krt, ThePainterGetsTheWholeCard) {
    fs::copy_file(KRT_PROGRAM, folder / "krt");
    auto const paint_by = [&](std::string const& program) {
        write("krt-draw", "#!/bin/sh\n" + program + "\n");
        fs::permissions(folder / "krt-draw", fs::perms(0700));
        return run("--version", " ; trap '' CHLD ; ./krt draw a.krt -o a.png >out 2>err");
    };
    // What stands for a comma in the file is one again for the painter, in whatever text.
    write_changed("a.krt", "vanha.krt", "field(1).caption=Nimi", "field(1).caption=Nimi\xa4 etu");
    write_changed("a.krt", folder / "a.krt", "field(2).value=",
                  "field(2).value=1\xa4"
                  "5");
    ASSERT_EQ(paint_by("cat"), 0) << err;
    auto const handed_over = bytes_of(folder / "a.png");
    for (auto const* const text : {"caption=Nimi\xa4 etu\r", "value=1\xa4"
                                                             "5\r"})
        EXPECT_NE(handed_over.find(text), std::string::npos) << text;
    // One that fails, is killed or has nothing to give leaves the old picture, whoever waits.
    for (auto const* const program : {"exit 2", "echo x; kill -9 $$", "true", "exit 9"}) {
        EXPECT_EQ(paint_by(program), 2) << program;
        EXPECT_TRUE(bytes_of(folder / "a.png") == handed_over) << program;
    }
}

TEST_F(Krt, DrawAndFormRefuseWhatTheyCannotTake) {
    write("teksti.krt", "ei kortti");
    fs::create_directory(folder / "kansio.krt");
    std::ofstream(folder / "suuri.krt").close();
    fs::resize_file(folder / "suuri.krt", 64UL * 1024 * 1024 + 1);
    for (auto const* const command : {"draw -o x.png ", "form -o x.html "})
        for (auto const* const file : {"teksti.krt", "puuttuu.krt", "kansio.krt", "suuri.krt"}) {
            EXPECT_EQ(run(std::string(command) + file), 2) << file;
            EXPECT_TRUE(err.starts_with("krt: " + std::string(file) + ": ")) << err;
            EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
        }
    take("asiakkaat.krt");
    for (auto const* const wrong :
         {"-o x.gif", "-o png", "", "-o x.png --scale 0", "-o x.png --scale 9",
          "-o x.png --scale nan", "-o x.png --scale x"}) {
        EXPECT_EQ(run(std::string("draw asiakkaat.krt ") + wrong), 2) << wrong;
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    }
    EXPECT_FALSE(fs::exists(folder / "x.png") || fs::exists(folder / "x.html"));
    EXPECT_EQ(run("form asiakkaat.krt -o ei/ole.html"), 2);
    EXPECT_EQ(err, "krt: ei/ole.html: ei voi kirjoittaa: tiedostoa tai hakemistoa ei ole\n");
    EXPECT_EQ(
        run("form asiakkaat.krt", " && '" KRT_PROGRAM "' form asiakkaat.krt 2>err >/dev/full"), 2);
}

TEST_F(Krt, FormCarriesThePicturesThatABrowserShows) {
    write_changed("a.krt", "tuotteet.krt", "field(25).list=", "field(25).list=kuva");
    auto const form = [&](std::string const& picture) {
        write("kuva", picture);
        return run("form a.krt");
    };
    for (auto const& [type, picture] :
         {std::pair("png", png), {"gif", gif}, {"jpeg", jpeg}, {"bmp", picture_header(40, -30)}}) {
        EXPECT_EQ(form(picture), 0) << err;
        EXPECT_NE(out.find("src=\"data:image/"s + type + ";base64,"), std::string::npos) << type;
    }
    // The caption stands for any other; a file that is not there is passed over in silence.
    for (auto const& [picture, fault] :
         {std::pair("<svg onload='x'/>"s, "Selain ei näytä tiedostoa kuvana"),
          {jpeg.substr(0, 10), "Selain ei näytä tiedostoa kuvana"},
          {picture_header(9000, 8000), "Kuva on liian suuri, yli 64 megapikseliä"},
          {png + std::string(16 * 1024 * 1024, 'x'), "Kuva on liian suuri sivulle"}}) {
        EXPECT_EQ(form(picture), 1) << fault;
        EXPECT_EQ(err, "krt: a.krt: kuvaa kuva ei voi näyttää: "s + fault + "\n");
        EXPECT_EQ(out.find("<img"), std::string::npos);
        EXPECT_NE(out.find(">[Ei kuvaa]</div>"), std::string::npos);
    }
    fs::remove(folder / "kuva");
    EXPECT_EQ(run("form a.krt"), 0);
    EXPECT_NE(out.find(">[Ei kuvaa]</div>"), std::string::npos);
    // The card's own picture stands beside it, from wherever the tool is run.
    fs::create_directory(folder / "k");
    write("k/tausta", png);
    write_changed("k/b.krt", "tuotteet.krt", "card.picture=       ", "card.picture=+tausta");
    EXPECT_EQ(run("form k/b.krt -o b.html"), 0) << err;
    EXPECT_NE(bytes_of(folder / "b.html").find("<img alt=\"\" src=\"data:image/png"),
              std::string::npos);
}

TEST_F(Krt, FormMakesEveryTextHarmless) {
    // The code page has more control characters than a page may hold.
    write_changed("a.krt", "vanha.krt", "field(1).caption=Nimi",
                  "field(1).caption=<i>\"'&\x01\x0b\x7f\x81\x9d\xe4");
    EXPECT_EQ(run("form a.krt"), 0);
    EXPECT_NE(out.find(">&lt;i&gt;&quot;&#39;&amp;     ä</"), std::string::npos);
    // A colour of the system is the browser's own.
    write_changed("b.krt", "vanha.krt", "field(1).foreColor=0", "field(1).foreColor=-2147483640");
    EXPECT_EQ(run("form b.krt"), 0);
    EXPECT_NE(out.find("color:CanvasText"), std::string::npos);
    // A card without fields is a page too.
    write_changed("c.krt", "vanha.krt", "card.fields=12", "card.fields=0");
    EXPECT_EQ(run("form c.krt"), 0);
    EXPECT_NE(out.find("aria-labelledby=\"card\">\n</form>"), std::string::npos);
}
