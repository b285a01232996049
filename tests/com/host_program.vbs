' velmar-host with a copy of a small drawing, driven from another process.
Dim app, doc, space, entity, count, lower, upper, layer
Set app = CreateObject("Velmar.Application")
Expect "the running one", app.Documents.Count, CLng(1)
Set doc = app.ActiveDocument
Set space = doc.ModelSpace
count = 0
For Each entity In space
    If entity.Handle <> "" Then count = count + 1
    If count = 10 Then Exit For
Next
Expect "walked", count, 10
Expect "the default member", space(0).Handle, space.Item(0).Handle

' A line of the script's own: points as arrays of variants.
Set entity = space.AddLine(Array(0, 0, 0), Array(3, 4, 0))
Expect "length", entity.Length, CDbl(5)
entity.Move Array(0, 0, 0), Array(1, 1, 0)
entity.GetBoundingBox lower, upper
Expect "a box of doubles", VarType(upper), 8197
layer = entity.Layer
entity.Layer = layer
On Error Resume Next
entity.Layer = "no such layer"
ExpectError "a missing layer", -2145386476, "Key not found"

' The component drives the same host.
app.QueueInput "#" & entity.Handle
velmar.GetTotalLength
If InStr(app.Transcript, "Total Length") = 0 Then Err.Raise 1000, "Transcript", app.Transcript
velmar.Del entity.Handle
On Error Resume Next
Set entity = doc.HandleToObject(entity.Handle)
ExpectError "an erased one", -2145386420, "Object was erased"
