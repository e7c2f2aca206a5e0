' Shows the list of all processes with a class of this script as the host, and says what keeps it from being shown.
' Set PELLMARK_LOG to a folder before, and the trace is written there.
'
'   cscript //nologo whatiswrong.vbs
'
' Pellmark.dll must be registered.
Option Explicit

Class Language
    Public Property Get LanguageCode()
        LanguageCode = 0
    End Property
End Class

Class ScriptHost
    ' A script has no window, so the list cannot be shown: the trace says which member was at fault.
    Public Property Get MainWindowHandle()
        Err.Raise 438, "ScriptHost", "There is no window yet."
    End Property
    Public Property Get InstallationFolder()
        InstallationFolder = "C:\Norvex\"
    End Property
    Public Property Get LanguageSettings()
        Set LanguageSettings = New Language
    End Property
    Public Property Get CurrentUnit()
        CurrentUnit = 71
    End Property
End Class

Dim manager
Set manager = CreateObject("Pellmark.Application")
On Error Resume Next
manager.ShowWindowProcessesView New ScriptHost, "no identifier"
If Err.Number = 0 Then
    WScript.Echo "No error came back."
Else
    WScript.Echo "Error " & (Err.Number And &HFFFF&) & ": " & Err.Description
End If
manager.Dispose
