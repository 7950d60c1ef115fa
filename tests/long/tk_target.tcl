# A Tk program with a line to type into; says when it has the focus, and what was typed.
entry .line -width 20
pack .line
wm geometry . +0+0
bind .line <FocusIn> { puts ready; flush stdout }
bind .line <KeyPress> { puts -nonewline %A; flush stdout }
focus -force .line
