#include "model/session.h"

#include "model/card.h"
#include "model/default_looks.h"
#include "model/settings.h"

namespace kehystin {

Session session;

namespace {

template <auto Member>
MemberRef plain(Session& record) {
    return &(record.*Member);
}

constexpr std::array table = {
    SessionMember{"appTitle", plain<&Session::appTitle>},
    SessionMember{"cardFile", plain<&Session::cardFile>},
    SessionMember{"cardFolder", plain<&Session::cardFolder>},
    SessionMember{"startFile", plain<&Session::startFile>},
    SessionMember{"startText", plain<&Session::startText>},
    SessionMember{"readFile", plain<&Session::readFile>},
    SessionMember{"windowsDir", plain<&Session::windowsDir>},
    SessionMember{"appPath", plain<&Session::appPath>},
    SessionMember{"helpFile", plain<&Session::helpFile>},
    SessionMember{"helpTopic", plain<&Session::helpTopic>},
    SessionMember{"pro_updating", plain<&Session::pro_updating>},
    SessionMember{"isSizing", plain<&Session::isSizing>},
    SessionMember{"cardFormLoaded", plain<&Session::cardFormLoaded>},
    SessionMember{"cardModified", plain<&Session::cardModified>},
    SessionMember{"needNewID", plain<&Session::needNewID>},
    SessionMember{"fieldsLocked", plain<&Session::fieldsLocked>},
    SessionMember{"dialogCancelled", plain<&Session::dialogCancelled>},
    SessionMember{"tipShown", plain<&Session::tipShown>},
    SessionMember{"pro_focus", plain<&Session::pro_focus>},
    SessionMember{"iconCount", plain<&Session::iconCount>},
    SessionMember{"fontDialogMode", plain<&Session::fontDialogMode>},
    SessionMember{"link_count", plain<&Session::link_count>},
    SessionMember{"link_reach", plain<&Session::link_reach>},
    SessionMember{"frame_x", plain<&Session::frame_x>},
    SessionMember{"caption_y", plain<&Session::caption_y>},
    SessionMember{"menu_y", plain<&Session::menu_y>},
    SessionMember{"small_caption_y", plain<&Session::small_caption_y>},
    SessionMember{"scroll_bar_x", plain<&Session::scroll_bar_x>},
};

} // namespace

std::span<SessionMember const> session_members() {
    return table;
}

void reset_session() {
    card = {};
    fields.assign(1, {});
    kept_card = open_card;
    session = {};
    settings = {};
    default_looks = {};
}

} // namespace kehystin
