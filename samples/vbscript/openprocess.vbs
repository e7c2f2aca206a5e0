' Lets the user pick a process of a feature case. The host object is a class of this script: whatever offers the
' members that the component calls can stand in for the host.
'
'   cscript //nologo openprocess.vbs
'
' Both libraries, Pellmark.dll and Norvex.dll, must be registered.
Option Explicit

Class Language
    Public Property Get LanguageCode()
        LanguageCode = 0
    End Property
End Class

Class ScriptHost
    ' No window: the picker stands for itself.
    Public Property Get MainWindowHandle()
        MainWindowHandle = 0
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

Dim host, manager, store, values, kept, featureType, unit, process
Set host = New ScriptHost
Set manager = CreateObject("Pellmark.Application")
Set store = CreateObject("Norvex.KnowledgeBaseService").FeatureCaseStore

' The first metric feature type, and the first value of each of its keys.
unit = 71
featureType = ""
Dim types, keyValues, keyOfLast
Set types = store.FeatureTypes(-1, "", unit)
If types.Count > 0 Then featureType = types.Field("_Id")
values = Array()
kept = 0
keyOfLast = ""
If featureType <> "" Then
    Set keyValues = store.Values(featureType)
    Do Until keyValues.EOF
        If keyValues.Field("_KeyId") <> keyOfLast Then
            keyOfLast = keyValues.Field("_KeyId")
            ReDim Preserve values(kept)
            values(kept) = keyValues.Field("_Id")
            kept = kept + 1
        End If
        keyValues.MoveNext
    Loop
End If
WScript.Echo "Values that describe the feature case: " & kept

' Variables go by reference, and the arguments in between are left out.
process = manager.OpenProcess(host, Nothing, values, unit, , , featureType)
If process = "" Then
    WScript.Echo "No process was picked."
Else
    WScript.Echo "Picked: " & process
End If
manager.Dispose
