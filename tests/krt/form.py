#!/usr/bin/env python3
"""Pages of krt form in a real browser: form.py KRT SOURCES

Every page stands unchanged in a frame of one page that measures it. Without the browser the test is
skipped, and says so.
"""
import html
import json
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

SKIPPED = 77
TITLE, TEXT, CHECK, OPTION, COMBO, IMAGE, FILES, NOTES = range(8)

MEASURE = """
const measure = frame => {
  const page = frame.contentDocument, form = page.forms[0];
  const origin = form.getBoundingClientRect();
  const named = (element, name) => (element.getAttribute(name) || '').split(' ')
    .filter(id => id).map(id => page.getElementById(id).textContent);
  const place = element => {
    const at = element.getBoundingClientRect();
    return [at.left - origin.left, at.top - origin.top, at.width, at.height];
  };
  const keyed = [...form.querySelectorAll('input, select, textarea')];
  return {
    lang: page.documentElement.lang, title: page.title, size: [origin.width, origin.height],
    tags: [...new Set([...page.querySelectorAll('*')].map(e => e.localName))],
    handlers: [...page.querySelectorAll('*')].flatMap(e => e.getAttributeNames())
      .filter(name => name.startsWith('on') || name === 'style'),
    pictures: [...page.images].map(i => [i.src.slice(0, 22), i.naturalWidth, i.naturalHeight]),
    fields: Object.fromEntries([...form.children].filter(e => e.id).map(e =>
      [e.id, {place: place(e), text: e.textContent, looks: getComputedStyle(e).color}])),
    order: keyed.map((e, i) => [e.tabIndex, i, (e.closest('[id^=f]')).id]).sort(
      (a, b) => a[0] - b[0] || a[1] - b[1]).map(key => key[2]),
    keyed: Object.fromEntries(keyed.map(e => [e.closest('[id^=f]').id, {
      limit: e.maxLength, value: e.value, on: e.checked, names: named(e, 'aria-labelledby'),
      label: e.getAttribute('aria-label'), group: e.name,
      rows: e.options && [...e.options].filter(o => !o.hidden).map(o => o.text)}])),
    clicked: [...form.querySelectorAll('label[for]')].every(l => l.control),
  };
};
addEventListener('load', () => {
  const told = document.createElement('pre');
  told.textContent = JSON.stringify([...document.querySelectorAll('iframe')].map(measure));
  document.body.replaceChildren(told);
});
"""


class Page:
    """A card, and what the browser makes of its page."""

    def __init__(self, krt, card, folder):
        def run(*words):
            done = subprocess.run([krt, *words], cwd=folder, capture_output=True)
            assert done.returncode < 2, done.stderr.decode()
            return done.stdout.decode()

        self.card_file = card
        self.records = json.loads(run("json", card))
        self.links = {link["data"]: link["title"]
                      for link in json.loads(run("links", "--json", card))["links"]}
        self.html = run("form", card)

    def field(self, number):
        return self.records["fields"][number - 1]

    def check(self, told):
        card = self.records["card"]
        assert told["lang"] == "fi" and told["title"] == card["name"], told["title"]
        assert told["size"] == [card["width"] - 8, card["height"] - 23]
        assert told["handlers"] == [] and told["clicked"]
        assert set(told["tags"]) <= {"html", "head", "meta", "title", "style", "body", "main", "h1",
                                     "form", "label", "span", "input", "textarea", "select",
                                     "option", "div", "img"}, told["tags"]
        assert len(told["fields"]) == len(self.records["fields"])
        for number, record in enumerate(self.records["fields"], 1):
            self.check_place(record, told["fields"][f"f{number}"], told["pictures"])
            if record["style"] == TITLE:
                assert told["fields"][f"f{number}"]["text"] == record["caption"]
            elif record["style"] != IMAGE:
                self.check_keyed(number, record, told["keyed"][f"f{number}"])
        keyed = [number for number, record in enumerate(self.records["fields"], 1)
                 if record["style"] not in (TITLE, IMAGE)]
        keyed.sort(key=lambda number: self.field(number)["tabIndex"])
        assert told["order"] == [f"f{number}" for number in keyed], self.card_file

    def check_place(self, record, told, pictures):
        wanted = [record[side] for side in ("left", "top", "width", "height")]
        sides = 4
        if record["style"] == COMBO:
            sides = 3  # a drop-down is as high as its font
            assert 12 < told["place"][3] < 60
        if record["style"] == IMAGE and record["scaling"] == 2 and pictures:
            sides = 2  # the frame follows the picture
        for side in range(sides):
            assert abs(told["place"][side] - wanted[side]) <= 1, (self.card_file, record, told)

    def check_keyed(self, number, record, told):
        style = record["style"]
        if number in self.links:
            assert told["names"][0] == self.field(self.links[number])["caption"]
        else:
            assert told["names"] or told["label"], record
        if style in (TEXT, NOTES):
            assert (told["limit"], told["value"]) == (record["size"], record["value"]), told
        if style in (CHECK, OPTION):
            assert told["on"] == (record["value"] not in ("0", "")), (record, told)
            assert told["names"][-1] == record["caption"]
            assert told["group"] == ("options" if style == OPTION else "")
        if style == COMBO:
            rows = record["list"].split("|")[:-1]
            chosen = int(record["value"] or 0)
            assert told["rows"] == rows
            assert told["value"] == (rows[chosen] if 0 <= chosen < len(rows) else "")


def png(width, height):
    def part(name, content):
        return (struct.pack(">I", len(content)) + name + content +
                struct.pack(">I", zlib.crc32(name + content)))
    return (b"\x89PNG\r\n\x1a\n" + part(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            part(b"IDAT", zlib.compress((b"\0" + b"\x40\x80\xc0" * width) * height)) + part(b"IEND", b""))


def hostile_card(krt, folder, example):
    """Every text tries to become something else, and every number is as large as it can be."""
    card = json.loads(subprocess.run([krt, "json", example], capture_output=True, check=True).stdout)
    script = "<script>document.title='x'</script>"
    card["card"].update(name="</title>" + script + "'\"&amp;", width=3000, height=3000)
    for number, field in enumerate(card["fields"]):
        field.update(caption=f"</label></span>{script}<img src=x onerror=alert(1)>\"'&lt;",
                     value="\"' autofocus onfocus=alert(1)>" + "</textarea>",
                     fontName="x</style><b onclick=y>\"}{*", size=30000,
                     tabIndex=990 if number % 2 else 0, left=3000, top=3000, width=3000, height=3000)
        if field["style"] == COMBO:
            field.update(list="</option></select>" + script + "|\"|", value="-1")
        if field["style"] in (CHECK, OPTION):
            field.update(value="0")
        if field["style"] == IMAGE:
            field.update(list="kuva.png", scaling=0)
    (folder / "kuva.png").write_bytes(png(30, 20))
    (folder / "paha.json").write_text(json.dumps(card))
    subprocess.run([krt, "make", "paha.json", "-o", "paha.krt"], cwd=folder, check=True)
    return folder / "paha.krt"


def told_by_browser(browser, folder, pages):
    frames = "".join(f'<iframe srcdoc="{html.escape(page.html)}"></iframe>' for page in pages)
    measuring = folder / "measure.html"
    measuring.write_text(f"<!DOCTYPE html><meta charset=utf-8><script>{MEASURE}</script>{frames}")
    done = subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu", "--dump-dom",
                           f"--user-data-dir={folder / 'profile'}", measuring.as_uri()],
                          capture_output=True, timeout=120, check=True)
    told = re.search(r"<pre>(.*)</pre>", done.stdout.decode(), re.DOTALL)
    assert told, done.stderr.decode()
    return json.loads(html.unescape(told.group(1)))


def main():
    krt, sources = sys.argv[1], pathlib.Path(sys.argv[2])
    browser = shutil.which("chromium")
    if not browser:
        print("SKIPPED: there is no chromium to try the pages in")
        return SKIPPED
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        cards = sorted((sources / "examples").glob("*.krt"))
        pages = [Page(krt, f"examples/{card.name}", sources) for card in cards]
        hostile = Page(krt, hostile_card(krt, folder, sources / "examples/tuotteet.krt"), folder)
        told = told_by_browser(browser, folder, [*pages, hostile])
        for page, measured in zip([*pages, hostile], told, strict=True):
            page.check(measured)
        by_name = dict(zip((card.stem for card in cards), told))
        assert len(by_name["sukukirja"]["pictures"]) == 5
        assert all(width > 0 for told in told for _, width, _ in told["pictures"])
        assert told[-1]["pictures"] == [["data:image/png;base64,", 30, 20]]
    return 0


sys.exit(main())
