// The same day of work twice, by the keyboard alone and by the mouse: both end with the same file.
#include "tests/desktop/working_day.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

namespace kehystin {

class BothHands : public DayProgram {
  protected:
    enum class Hand { keys, mouse };

    bool by_keys() const { return hand_ == Hand::keys; }
    /// Keys go where the keyboard is, wherever that may be.
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        auto* const popup = QApplication::activePopupWidget();
        auto* const inside = popup ? popup->focusWidget() : QApplication::focusWidget();
        auto* const window = popup ? popup : QApplication::activeWindow();
        ASSERT_TRUE(window) << "the keyboard is nowhere";
        QTest::keyClick(inside ? inside : window, key, modifiers);
    }
    static void type(QString const& text) {
        ASSERT_TRUE(QApplication::focusWidget()) << "the keyboard is nowhere";
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    static bool is_no_number(QLineEdit& line) {
        return !line.parentWidget()->inherits("QAbstractSpinBox");
    }
    static void hit(QWidget& what) { QTest::mouseClick(&what, Qt::LeftButton); }

    /// Goes to a part of the window in front.
    void go_to(QWidget& part) {
        if (!by_keys())
            return part.hasFocus() ? void() : hit(part);
        constexpr int most_stops = 60;
        for (int i = 0; i < most_stops && !part.hasFocus() && !HasFailure(); ++i)
            key(Qt::Key_Tab);
        EXPECT_TRUE(part.hasFocus()) << part.objectName().toStdString();
    }
    static QWidget& part(QWidget& dialog, char const* name) {
        return *dialog.findChild<QWidget*>(QLatin1String(name));
    }
    void press(QWidget& button) {
        if (!by_keys())
            return hit(button);
        go_to(button);
        key(Qt::Key_Space);
    }
    /// What is typed replaces what stands in a line.
    void fill(QWidget& line, QString const& text) {
        go_to(line);
        key(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }
    void command(char const* menu, char const* entry) {
        auto const is_called = [](QAction const& one, char const* name) {
            return one.text().section(u'\t', 0, 0).remove(u'&').trimmed() ==
                   QString::fromUtf8(name);
        };
        auto* const bar = find_child<QMenuBar>(*window());
        for (auto* const top : bar->actions())
            if (is_called(*top, menu) && by_keys()) {
                auto const keys = QKeySequence::mnemonic(top->text());
                key(keys[0].key(), keys[0].keyboardModifiers());
            } else if (is_called(*top, menu))
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
        auto* const open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(open) << menu;
        for (auto* const one : open->actions())
            if (is_called(*one, entry)) {
                if (!by_keys())
                    return QTest::mouseClick(open, Qt::LeftButton, {},
                                             open->actionGeometry(one).center());
                for (auto i = open->actions().size(); i > 0 && open->activeAction() != one; --i)
                    key(Qt::Key_Down);
                EXPECT_EQ(open->activeAction(), one) << entry;
                return key(Qt::Key_Return);
            }
        FAIL() << entry;
    }

    // The panel.

    void row(char const* editor, QString const& text = {}) {
        go_to(widget(editor));
        type(text);
        settle();
    }
    /// Opens what belongs to a row.
    void open_beside(char const* editor, char const* button) {
        go_to(widget(editor));
        if (by_keys())
            key(Qt::Key_Down, Qt::AltModifier);
        else
            hit(widget(button));
    }
    void choose_item(QWidget& list, int item) {
        auto& view = dynamic_cast<QAbstractItemView&>(list);
        if (!by_keys()) {
            auto const place = view.visualRect(view.model()->index(item, 0));
            QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place.center());
            return;
        }
        key(Qt::Key_Home);
        for (int i = 0; i < item; ++i)
            key(Qt::Key_Down);
    }
    void pick(char const* editor, char const* button, char const* list, int item) {
        open_beside(editor, button);
        choose_item(widget(list), item);
        if (by_keys())
            key(Qt::Key_Return);
        settle();
    }
    void step_up(char const* editor, char const* arrows, int times) {
        go_to(widget(editor));
        for (int i = 0; i < times; ++i)
            if (by_keys())
                key(Qt::Key_Up);
            else
                QTest::mouseClick(&widget(arrows), Qt::LeftButton, {},
                                  {widget(arrows).width() / 2, 3});
        settle();
    }
    void colour(char const* editor, char const* button, QString const& value) {
        in_windows_of(editor, [&] { open_beside(editor, button); },
                      {[this, value](QWidget& dialog) {
                          fill(*find_child<QLineEdit>(dialog, is_no_number), value);
                          key(Qt::Key_Return);
                      }});
    }
    std::function<void(QWidget&)> answer(char const* caption) {
        return [this, caption](QWidget& box) {
            auto* const button = find_child<QAbstractButton>(box, [&](QAbstractButton& one) {
                return one.text().remove(u'&') == QString::fromUtf8(caption);
            });
            ASSERT_TRUE(button) << caption << " in " << box.metaObject()->className()
                                << box.windowTitle().toStdString();
            if (!by_keys())
                return hit(*button);
            auto const keys = QKeySequence::mnemonic(button->text());
            ASSERT_FALSE(keys.isEmpty()) << caption;
            key(keys[0].key(), keys[0].keyboardModifiers());
        };
    }
    std::function<void(QWidget&)> say(char const* text) {
        return [this, text](QWidget& box) {
            type(QLatin1String(text));
            if (by_keys())
                key(Qt::Key_Return);
            else
                hit(*find_child<QAbstractButton>(
                    box, [](QAbstractButton& one) { return one.text() == QStringLiteral("OK"); }));
        };
    }
    std::function<void(QWidget&)> give_file(QString const& path) {
        return [this, path](QWidget& dialog) {
            auto& line = *dialog.findChild<QLineEdit*>();
            line.setCompleter(nullptr); // what Qt offers comes when it likes
            fill(line, path);
            key(Qt::Key_Return);
        };
    }

    // The card.

    void add(char const* button) {
        if (by_keys()) {
            constexpr int bars = 3;
            for (int i = 0; i < bars && !widget("fldBar").isAncestorOf(QApplication::focusWidget());
                 ++i)
                key(Qt::Key_F6, Qt::ControlModifier);
            go_to(widget(button));
            key(Qt::Key_Return);
            settle();
            dropped_.append({field(card.fields).left, field(card.fields).top});
        } else {
            constexpr QPoint hand(5, 5); // the pointer stands so far inside of what it drops
            drop_from_bar(button, dropped_.takeFirst() + hand);
        }
    }
    void select(int number) {
        if (!by_keys()) {
            click(number == 0 ? QPoint(590, 390) : middle_of(number));
            return settle();
        }
        auto& selector = dynamic_cast<QComboBox&>(widget("cmb_field"));
        go_to(selector);
        key(Qt::Key_F4);
        choose_item(*selector.view(), number);
        key(Qt::Key_Return);
        come_back();
        EXPECT_EQ(fEditor->cmb_field.ListIndex, number);
    }

    void make_card();
    void add_fields();
    void edit_list();
    void link_by_hand(int title);
    void use_dialogs();
    /// The whole day; what its file says, line by line.
    QStringList work(Hand hand);

  private:
    Hand hand_ = Hand::keys;
    QList<QPoint> dropped_; // where the keyboard has put fields, for the mouse to put them too
};

void BothHands::make_card() {
    auto const next = [this](QWidget& wizard) {
        if (by_keys())
            key(Qt::Key_Return);
        else
            hit(part(wizard, "cmdSeuraava"));
    };
    in_windows_of("the wizard", [&] { command("Tiedosto", "Uusi..."); },
                  {[this](QWidget&) { type(QStringLiteral("2")); }, next,
                   [this](QWidget& wizard) {
                       go_to(part(wizard, "txtOtsikko(2)"));
                       type(QStringLiteral("Osoite"));
                   },
                   next,
                   [this](QWidget& wizard) {
                       if (by_keys()) {
                           go_to(part(wizard, "optPosTop"));
                           key(Qt::Key_Down);
                       } else
                           hit(part(wizard, "optPosLeft"));
                   },
                   next, next});
    ASSERT_EQ(card.fields, 4);
    select(0);
    row("txt_name", QStringLiteral("Sama kortti"));
    row("txt_width", QStringLiteral("900"));
    row("txt_height", QStringLiteral("700"));
    colour("txt_bc", "cmd_bc", QStringLiteral("#ffffcc"));
}

/// No card is saved with a field that belongs to no title.
void BothHands::link_by_hand(int title) {
    auto const by_hand = [&] { pick("txt_linkitys", "cmd_linkitys", "lst_linkitys", 1); };
    // A field without a title keeps none for the start, and that is told.
    if (field(fEditor->cmb_field.ListIndex).linkki == 0)
        in_windows_of("a link to nothing", by_hand, {[this](QWidget& box) {
                          if (by_keys())
                              key(Qt::Key_Return);
                          else
                              hit(*dynamic_cast<QMessageBox&>(box).defaultButton());
                      }});
    else
        by_hand();
    pick("txt_linkki", "cmd_linkki", "lst_linkki", title == 5 ? 2 : title - 1);
    EXPECT_EQ(field(fEditor->cmb_field.ListIndex).linkki, title);
}

void BothHands::add_fields() {
    add("drag_ots");
    row("txt_caption", QStringLiteral("Puhelin"));
    pick("txt_align", "cmd_alignment", "lst_align", 1);
    pick("txt_fontBold", "cmd_fontBold", "lst_boolean", 0);
    pick("txt_fontSize", "cmd_fontSize", "lst_fontSize", 6);
    step_up("txt_left", "scr_left", 3);
    add("drag_txt");
    row("txt_size", QStringLiteral("40"));
    row("txt_value", QStringLiteral("09"));
    row("txt_width", QStringLiteral("75"));
    add("drag_chk");
    row("txt_caption", QStringLiteral("Maksettu"));
    pick("txt_value", "cmd_value", "lst_value", 1);
    colour("txt_fc", "cmd_fc", QStringLiteral("#800000"));
    link_by_hand(5);
    add("drag_cmb");
    edit_list();
    pick("txt_value", "cmd_value", "lst_value", 2);
    link_by_hand(5);
    add("drag_stx");
    row("txt_height", QStringLiteral("60"));
    link_by_hand(1);
    add("drag_opt");
    row("txt_tabindex", QStringLiteral("1"));
    link_by_hand(1);
    add("drag_lst");
    link_by_hand(1);
    add("drag_img");
    in_windows_of("the picture", [&] { open_beside("txt_imgfile", "cmd_imgfile"); },
                  {give_file(QFileInfo(QStringLiteral(KEHYSTIN_SOURCES "/examples/kuvat/talo.bmp"))
                                 .absoluteFilePath())}); // on Windows with its drive
    in_windows_of("the scaling", [&] { pick("txt_scale", "cmd_scale", "lst_scale", 1); },
                  {answer("Kyllä")});
    pick("txt_border", "cmd_border", "lst_border", 1);
    link_by_hand(5);
    select(6);
    link_by_hand(2);
}

/// Three items, the last of which goes to the middle.
void BothHands::edit_list() {
    open_beside("txt_list", "cmd_list");
    in_windows_of(
        "the list", [&] { press(widget("cmd_list_add")); },
        {say("Yksi"), answer("Kyllä"), say("Kaksi"), answer("Kyllä"), say("Kolme"), answer("Ei")});
    press(widget("cmd_list_up"));
    EXPECT_EQ(field(8).list.trimmed(), "Yksi|Kolme|Kaksi|");
    if (by_keys())
        key(Qt::Key_Escape);
    settle();
}

void BothHands::use_dialogs() {
    in_windows_of("roles", [&] { command("Kenttä", "Kenttämääritykset..."); },
                  {[this](QWidget& dialog) {
                       go_to(part(dialog, "tree"));
                       choose_item(part(dialog, "tree"), 2);
                   },
                   [this](QWidget& dialog) {
                       auto& box = dynamic_cast<QComboBox&>(part(dialog, "cmbEmail"));
                       if (by_keys()) {
                           go_to(box);
                           return key(Qt::Key_Down);
                       }
                       box.showPopup();
                       choose_item(*box.view(), 1);
                       dialog.activateWindow(); // as a window manager does
                   },
                   [this](QWidget& dialog) { press(part(dialog, "cmdOK")); }});
    in_windows_of("columns", [&] { command("Kenttä", "Sarakejärjestys..."); },
                  {[this](QWidget& dialog) {
                       go_to(part(dialog, "lst"));
                       choose_item(part(dialog, "lst"), 1);
                   },
                   [this](QWidget& dialog) {
                       if (by_keys())
                           key(Qt::Key_Y, Qt::AltModifier);
                       else
                           hit(part(dialog, "cmd_up"));
                   },
                   [this](QWidget& dialog) { press(part(dialog, "cmd_ok")); }});
    in_windows_of("settings", [&] { command("Tiedosto", "Asetukset..."); },
                  {[this](QWidget& dialog) {
                      fill(part(dialog, "txt_grid_X"), QStringLiteral("10"));
                      press(part(dialog, "cmd_ok"));
                  }});
}

QStringList BothHands::work(Hand hand) {
    hand_ = hand;
    folder = QTemporaryDir(); // with no settings from before
    start();
    window()->resize(1300, 900); // room for all fields
    make_card();
    add_fields();
    use_dialogs();
    auto const path = folder.filePath(QStringLiteral("paiva.krt"));
    QTimer saving; // some titles have no fields, and that is asked about
    QPointer<QWidget> last;
    saving.callOnTimeout([&] {
        auto* const box = QApplication::activeModalWidget();
        if (!box || box == last || !box->isActiveWindow())
            return;
        last = box;
        QTimer::singleShot(0, box, [this, box, path] {
            if (auto* const asked = qobject_cast<QMessageBox*>(box))
                by_keys() ? key(Qt::Key_Return) : hit(*asked->defaultButton());
            else
                give_file(path)(*box);
        });
    });
    saving.start(30);
    command("Tiedosto", "Tallenna");
    EXPECT_TRUE(soon([&] { return !session.cardModified; }));
    saving.stop();
    come_back();
    command("Tiedosto", "Sulje");
    settle();
    EXPECT_FALSE(card_window());
    command("Tiedosto", "Lopeta");
    EXPECT_TRUE(host->isSessionOver());
    program.reset();
    host.reset();
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromLatin1(file.readAll()).split(u'\n');
}

TEST_F(BothHands, EndWithTheSameFile) {
    auto const keys = work(Hand::keys);
    auto const mouse = work(Hand::mouse);
    EXPECT_GT(keys.size(), 300);
    ASSERT_EQ(keys.size(), mouse.size());
    auto const is_of_the_moment = [](QString const& line) {
        return line.startsWith(QLatin1String("card.ID=")) ||
               line.startsWith(QLatin1String("card.editDate="));
    };
    for (qsizetype i = 0; i < keys.size(); ++i)
        if (!is_of_the_moment(keys.at(i))) {
            EXPECT_EQ(keys.at(i).toStdString(), mouse.at(i).toStdString());
        }
}

} // namespace kehystin
