#pragma once

/// Where a row of the lobby stands. Of a channel's row only invite_none and invite_invited are usual.
enum class invitestate {
    invite_none = 0, ///< nothing going on
    invite_busy = 1, ///< the client answered automatically, its user saw no question
    invite_invited = 2, ///< invited, no answer yet; a channel: invited as a whole
    invite_accepted = 3,
    invite_rejected = 4, ///< the user said no
    invite_rejectedversion = 5, ///< the client's plugin speaks another version of the protocol
    invite_host = 6, ///< the client that hosts the session; set on guests only
    invite_self = 7, ///< the own client
};
