' Shows the list of all processes inside the host's main window, and what a wrong call answers.
'
'   cscript //nologo processes.vbs [/wait]
'
' With /wait the window stays until it is closed. Both libraries, Pellmark.dll and Norvex.dll, must be registered.
Option Explicit

Dim host, manager, knowledgeBase, result
Set host = CreateObject("Norvex.Application")
Set manager = CreateObject("Pellmark.Application")
Set knowledgeBase = CreateObject("Norvex.KnowledgeBaseService")

If Not knowledgeBase.IsConnected Then
    WScript.Echo "The knowledge base cannot be used."
    WScript.Quit 1
End If
WScript.Echo "Processes in the knowledge base: " & knowledgeBase.ProcessStore.Processes("").Count

' The optional identifier of a process to select is left out.
result = manager.ShowWindowProcessesView(host)
WScript.Echo "The list is shown; the call's result is empty: " & IsEmpty(result)
WScript.Echo "The component keeps the host object: " & (manager.NorvexApplication Is host)

' A value for the host, which the component does not look at itself. 1 is FRProcesscase.
manager.CurrentView = 1
WScript.Echo "CurrentView is now " & manager.CurrentView

' No host: nothing happens.
result = manager.ShowWindowProcessesView(Nothing)
WScript.Echo "Without a host nothing happens: " & IsEmpty(result)

' What wrong calls answer.
On Error Resume Next
manager.ShowWindowProcessesView 5
Report "A number in the host's place"
manager.ShowWindowProcessesView knowledgeBase
Report "An object that is no host"
manager.ShowWindowProcessCaseView host
Report "A case without its values"
manager.ShowWindowProcessCaseView host, Array(), 100000
Report "A unit out of range"
manager.ShowEverything host
Report "A method that does not exist"
On Error GoTo 0

If WScript.Arguments.Count > 0 Then
    If WScript.Arguments(0) = "/wait" Then host.Run
End If

manager.Dispose
WScript.Echo "Disposed; the host object is given back: " & (manager.NorvexApplication Is Nothing)

Sub Report(what)
    If Err.Number = 0 Then
        WScript.Echo what & ": no error"
    Else
        WScript.Echo what & ": error " & Hex(Err.Number) & ": " & Err.Description
    End If
    Err.Clear
End Sub
