Option Explicit

Public Enum Colors
  clrRed = vbRed
  clrGreen = vbGreen
  [_Last] = 2
End Enum

Private Enum Modes ' how to run
  mdNone
  mdAll
End Enum

Enum Plain
  plOne = 1
End Enum

Private Type Point
  X As Long
  Y As Long
End Type

Public Type Shape
  Name As String * 20
  Points(1 To 10) As Point
End Type

Type Old
  Kind As Integer
End Type

Private Type Message
  Type As Integer
    Text As String
  End Type
