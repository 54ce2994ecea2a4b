#pragma once

#include "line_mutator.h"
#include "vocabulary.h"

// Lines that the structured layout has something to say of, beside all others.
namespace vocabulary {

inline Phrases structured() {
    const Phrases own{
        "    $ = #",
        "        $ = #",
        "  $ = #",
        "\t$ = #",
        "\t\t$ = #",
        "    If $ Then",
        "    End If",
        "If $ Then _",
        "If $! Then 'x",
        "If $ Then:",
        "If $ Then Rem",
        "If $ Then: $ = # Else Rem x",
        "    Else: $",
        "ElseIf $ Then $ = #",
        "Next j, i",
        "Next: Next",
        "For i = 1 To #: For j = 1 To #",
        "End If: End If",
        "Do: $: Loop",
        "    Select Case $",
        "    Case #: If $ Then",
        "    #If $ Then",
        "#If False Then",
        "#ElseIf $ Then",
        "    #End If",
        "    ' $",
        "      ' $ _",
        "' $ _  ",
        "    $ = # ' $",
        "            ' $",
        " _",
        "_",
        "'corvelle:off",
        "'corvelle:on",
        "10 $ = #",
        "20",
        "$: If $ Then",
        "    WriteStart",
        "    WriteEnd",
        "        If As Long",
        "    End As Long",
        "Public Static Function $()",
        "    Dim $ As Long",
        "On Error Resume Next",
        "End $",
        "$ = \"open",
        "$ = [open",
        "$ = #1/2/2000 3:04:05 PM# : Next",
        "Print #1, a: Print #2",
        "$.End = # : $!Next = #",
        "a\rb",
    };
    return together({own, code});
}

} // namespace vocabulary
