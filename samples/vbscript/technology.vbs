' A technology service written in a script: whatever offers these members can stand in for the host's. Its process
' files hold one line per operation and one per parameter, the parts separated by tabs.
'
'   cscript //nologo technology.vbs
'
' Nothing needs to be registered.
Option Explicit

Const NumberValue = 1
Const TextValue = 2
Const KindInput = 2
Const KindKept = 6
Const StateDefault = 0
Const StateGiven = 1
Const Accepted = 1
Const ForReading = 1

Class Technology
    Private cycle
    Private name
    Private values  ' by code, in the order of their adding
    Private states

    Private Sub Class_Initialize()
        Set values = CreateObject("Scripting.Dictionary")
        Set states = CreateObject("Scripting.Dictionary")
    End Sub

    Public Sub Start(CuttingCycleId, Title)
        cycle = CuttingCycleId
        name = Title
    End Sub
    Public Sub Add(ClCode, Value, State)
        values.Add CLng(ClCode), Value
        states.Add CLng(ClCode), State
    End Sub

    Public Property Get CuttingCycleId()
        CuttingCycleId = cycle
    End Property
    Public Property Get OperationName()
        OperationName = name
    End Property
    Public Property Let OperationName(NewName)
        name = NewName
    End Property

    ' Records of ClCode, Kind, State, Type, Value.
    Public Property Get Parameters()
        Dim records, at, code, valueType, kind
        records = values.Keys
        For at = 0 To UBound(records)
            code = records(at)
            valueType = 0
            If VarType(values(code)) = vbString Then
                valueType = TextValue
            ElseIf Not IsEmpty(values(code)) Then
                valueType = NumberValue
            End If
            kind = KindInput
            If code = 432 Or code = 1764 Or code = 1767 Then kind = KindKept
            records(at) = Array(code, kind, states(code), valueType, values(code))
        Next
        Parameters = records
    End Property

    Public Sub SetValue(ClCode, Value)
        If Not values.Exists(CLng(ClCode)) Then
            Err.Raise 5, "Technology", "There is no parameter with the code " & ClCode & "."
        End If
        values(CLng(ClCode)) = Value
        states(CLng(ClCode)) = StateGiven
    End Sub
End Class

Class ProcessFile
    Private lines
    Private at

    Public Sub Load(Path)
        Dim stream
        Set stream = CreateObject("Scripting.FileSystemObject").OpenTextFile(Path, ForReading)
        lines = Split(stream.ReadAll, vbCrLf)
        stream.Close
        at = 0
        If Left(lines(0), 10) <> "operation" & vbTab Then
            Err.Raise 5, "ProcessFile", Path & ", line 1: this is no process file."
        End If
    End Sub

    Public Property Get Count()
        Dim line
        Count = 0
        For Each line In lines
            If Left(line, 10) = "operation" & vbTab Then Count = Count + 1
        Next
    End Property

    Public Function NextOperation()
        Dim parts, read
        parts = Split(lines(at), vbTab)
        Set read = New Technology
        read.Start CInt(parts(1)), parts(2)
        at = at + 1
        Do While at <= UBound(lines)
            parts = Split(lines(at), vbTab)
            If UBound(parts) <> 2 Then Exit Do
            If parts(0) = "operation" Then Exit Do
            If CInt(parts(1)) = NumberValue Then
                read.Add CLng(parts(0)), CDbl(parts(2)), StateGiven
            Else
                read.Add CLng(parts(0)), parts(2), StateGiven
            End If
            at = at + 1
        Loop
        Set NextOperation = read
    End Function
End Class

Class TechnologyService
    Public Function Create(CuttingCycleId, ProcessId)
        Dim made
        Set made = New Technology
        made.Start CuttingCycleId, "Drill"
        made.Add 432, "Drill", StateDefault
        made.Add 1001, 6.5, StateDefault
        made.Add 1101, 80, StateDefault
        made.Add 1301, Empty, StateDefault
        Set Create = made
    End Function

    ' No window: the person takes the values as they are.
    Public Function Edit(Edited, OwnerWindow)
        Edit = Accepted
    End Function
    ' The only page of this wizard sets the coolant.
    Public Function RunStepWizard(Edited, OwnerWindow)
        Edited.SetValue 1301, "emulsion"
        RunStepWizard = True
    End Function

    Public Function OpenFile(Path)
        Dim file
        Set file = New ProcessFile
        file.Load Path
        Set OpenFile = file
    End Function
    Public Function WriteFile(Path, Technologies)
        Dim stream, operation, record
        WriteFile = False
        On Error Resume Next
        Set stream = CreateObject("Scripting.FileSystemObject").CreateTextFile(Path, True)
        If Err.Number <> 0 Then Exit Function
        On Error Goto 0
        For Each operation In Technologies
            stream.WriteLine "operation" & vbTab & operation.CuttingCycleId & vbTab & operation.OperationName
            For Each record In operation.Parameters
                If record(2) <> StateDefault And record(3) <> 0 Then
                    stream.WriteLine record(0) & vbTab & record(3) & vbTab & record(4)
                End If
            Next
        Next
        stream.Close
        WriteFile = True
    End Function
    Public Property Get DefaultFolder()
        DefaultFolder = CreateObject("Scripting.FileSystemObject").GetSpecialFolder(2).Path
    End Property
    Public Sub StepStored(StepId, Stored)
        WScript.Echo "Stored with " & StepId & ": " & Stored.OperationName
    End Sub
End Class

Function NewTechnologyService()
    Set NewTechnologyService = New TechnologyService
End Function

' What the component does with it, in small.
Dim service, drill, file, path, again, record
Set service = NewTechnologyService()
Set drill = service.Create(602, "")
drill.OperationName = "Drill 6.5"
drill.SetValue 1101, 95
WScript.Echo "Taken over: " & (service.Edit(drill, 0) = Accepted)
WScript.Echo "Finished: " & service.RunStepWizard(drill, 0)
path = service.DefaultFolder & "\technology-sample.prc"
WScript.Echo "Written: " & service.WriteFile(path, Array(drill, drill))
Set file = service.OpenFile(path)
WScript.Echo "Operations: " & file.Count
Set again = file.NextOperation()
WScript.Echo again.OperationName & " in cycle " & again.CuttingCycleId
For Each record In again.Parameters
    WScript.Echo "  " & record(0) & " = " & record(4)
Next
service.StepStored "a step", again
