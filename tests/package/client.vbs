' client.vbs               - creates the add-ins' classes and the control, and uses them a little.
' client.vbs hold OUT IN   - keeps one of them, tells so by making the file OUT, until there is the file IN.
' Ends with 42 when all went well.
Option Explicit

Sub Expect(what, actual, wanted)
    If actual <> wanted Then
        WScript.Echo what & " is '" & actual & "' instead of '" & wanted & "'"
        WScript.Quit 1
    End If
End Sub

Dim formatter, indexer, indicator, files
Set formatter = CreateObject("Corvelle.CodeFormatter")

If WScript.Arguments.Count = 3 Then
    Set files = CreateObject("Scripting.FileSystemObject")
    files.CreateTextFile(WScript.Arguments(1)).Close
    Do Until files.FileExists(WScript.Arguments(2))
    Loop
    WScript.Quit 42
End If

Set indexer = CreateObject("Corvelle.ContextHelpIndexer")
Expect "the formatter's class", TypeName(formatter), "_CodeFormatter"
Expect "the indexer's class", TypeName(indexer), "_ContextHelpIndexer"
Expect "IsLoaded", formatter.IsLoaded, False
indexer.bOK = True
Expect "bOK", indexer.bOK, True

Set indicator = CreateObject("Corvelle.Indicator")
Expect "Interval", indicator.Interval, 120
indicator.DotColor = 255
Expect "DotColor", indicator.DotColor, 255
WScript.Quit 42
