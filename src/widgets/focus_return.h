#pragma once
// Taking the focus back into a field whose text was refused on leaving it.
//
// The refusal is found in the field's exit handler, while the focus is on its way to the next
// control; moving it back from inside that move would interleave two focus changes (the next
// control would lose a focus it never received). So the focus goes back once the move is over,
// and only if nothing has happened since that makes it wrong to take it:
//   - the user has moved on (the control the focus went to no longer has it, in the field's
//     window): the field does not chase the user;
//   - a dialog or message box is open over the window: it keeps the focus;
//   - the field can no longer take the focus (hidden with its page, disabled, gone).
// The control the focus went to is left with an ordinary focus move, so its own exit handler
// runs (and, having nothing typed, does nothing): one return, no ping-pong.

class QWidget;

namespace wk {

// Called from the field's exit handler, after any message about the refusal has been shown.
void ReturnFocusLater(QWidget* field);

}  // namespace wk
