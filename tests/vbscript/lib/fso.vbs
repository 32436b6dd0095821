' Scripting.FileSystemObject in a temporary folder, removed at the end.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub

Set fso = CreateObject("Scripting.FileSystemObject")
WScript.Echo fso.GetFileName("a\b\c.txt"), fso.GetFileName("a/b/"), fso.GetBaseName("c:\x\y.tar.gz"), fso.GetExtensionName("y.tar.gz"), "[" & fso.GetExtensionName("noext") & "]"
WScript.Echo fso.GetParentFolderName("a\b\c\"), fso.GetParentFolderName("/x"), "[" & fso.GetParentFolderName("x") & "]", fso.GetDriveName("C:\x"), fso.GetDriveName("\\srv\share\x"), "[" & fso.GetDriveName("/x") & "]"
WScript.Echo fso.BuildPath("a", "b"), fso.BuildPath("a\", "b"), fso.BuildPath("a\b", "c"), fso.GetAbsolutePathName("/x/./y/../z"), Len(fso.GetTempName) = 12
WScript.Echo fso.DriveExists("C"), fso.DriveExists("C:\"), fso.GetDrive("C:").DriveLetter, fso.GetDrive("c").Path, fso.GetDrive("C").RootFolder.IsRootFolder, fso.Drives.Count > 0

base = fso.BuildPath(fso.GetSpecialFolder(2).Path, "zwlib" & fso.GetTempName)
Set f = fso.CreateFolder(base)
WScript.Echo TypeName(f), fso.FolderExists(base), fso.FileExists(base), f.Files.Count, f.Type, f.Attributes And 16
fso.CreateFolder base: Chk "CreateFolder existing"
fso.CreateFolder base & "\no\such": Chk "CreateFolder missing parent"

Set t = fso.CreateTextFile(base & "\one.txt")
t.WriteLine "linha 1 ção"
t.Write "two"
WScript.Echo t.Line, t.Column
t.WriteBlankLines 2
t.Close
Set t = fso.OpenTextFile(base & "/one.txt")
Do Until t.AtEndOfStream
  WScript.Echo t.Line, "[" & t.ReadLine & "]"
Loop
x = t.ReadLine: Chk "ReadLine past the end"
t.Write "x": Chk "Write on a reading stream"
t.Close
Set t = fso.OpenTextFile(base & "\one.txt", 8)
t.Write "end"
x = t.ReadAll: Chk "ReadAll on an appending stream"
t.Close
Set t = fso.OpenTextFile(base & "\one.txt", 1)
WScript.Echo t.Read(5), t.Column, t.AtEndOfLine
t.Skip 6
WScript.Echo t.AtEndOfLine
t.SkipLine
WScript.Echo "[" & t.ReadAll & "]"
t.Close
Set fl = fso.GetFile(base & "\one.txt")
WScript.Echo TypeName(fl), fl.Name, fl.Size, fl.Type, fl.Attributes And 1, TypeName(fl.DateLastModified), fl.ParentFolder.Name = f.Name, fl.Drive.DriveLetter
Set u = fso.OpenTextFile(base & "\u.txt", 2, True, -1)
u.Write "€x"
u.Close
WScript.Echo fso.GetFile(base & "\u.txt").Size, fso.OpenTextFile(base & "\u.txt", 1, False, -1).ReadAll
Set u = fso.OpenTextFile(base & "\u.txt", 8, False, -1)
u.WriteLine "y"
u.Close
Set u = fso.GetFile(base & "\u.txt").OpenAsTextStream(1, -1)
WScript.Echo fso.GetFile(base & "\u.txt").Size, u.ReadLine, u.AtEndOfStream
u.Close
x = u.ReadLine: Chk "ReadLine after Close"
fso.CreateTextFile base & "\u.txt", False: Chk "CreateTextFile no overwrite"
x = fso.OpenTextFile(base & "\missing.txt"): Chk "OpenTextFile missing"
x = fso.OpenTextFile(base & "\missing.txt", 9): Chk "OpenTextFile mode 9"
Set t = fso.OpenTextFile(base & "\made.txt", 2, True)
t.Close
WScript.Echo fso.FileExists(base & "\made.txt")

fso.CopyFile base & "\one.txt", base & "\two.txt"
fso.CopyFile base & "\one.txt", base & "\two.txt", False: Chk "CopyFile no overwrite"
fso.CopyFile base & "\*.txt", base & "\sub\": Chk "CopyFile into a missing folder"
f.SubFolders.Add "sub"
fso.CopyFile base & "\*.txt", base & "\sub\"
WScript.Echo f.SubFolders.Count, f.SubFolders("sub").Files.Count, fso.GetFolder(base & "\sub").Files("two.txt").Name
fso.CopyFile base & "\nothing*.txt", base & "\sub\": Chk "CopyFile no match"
fso.CopyFolder base & "\sub", base & "\sub2"
WScript.Echo fso.GetFolder(base & "\sub2").Files.Count, fso.GetFolder(base).Size = 2 * fso.GetFolder(base & "\sub").Size + fso.GetFolder(base & "\sub").Size
fso.CopyFolder base & "\nope", base & "\x": Chk "CopyFolder missing"
fso.MoveFile base & "\two.txt", base & "\three.txt"
WScript.Echo fso.FileExists(base & "\two.txt"), fso.FileExists(base & "\three.txt")
fso.MoveFile base & "\three.txt", base & "\one.txt": Chk "MoveFile onto a file"
fso.MoveFolder base & "\sub2", base & "\sub3"
WScript.Echo fso.FolderExists(base & "\sub2"), fso.FolderExists(base & "\sub3")
Set fl = fso.GetFile(base & "\three.txt")
fl.Name = "four.txt"
WScript.Echo fl.Name, fso.FileExists(base & "\four.txt")
fl.Copy base & "\sub\"
fl.Delete
WScript.Echo fso.FileExists(base & "\four.txt"), fso.FileExists(base & "\sub\four.txt")
fso.GetFile(base & "\one.txt").Attributes = 1
fso.DeleteFile base & "\one.txt": Chk "DeleteFile read-only"
fso.DeleteFile base & "\one.txt", True
fso.DeleteFile base & "\sub\*.txt"
WScript.Echo fso.FileExists(base & "\one.txt"), fso.GetFolder(base & "\sub").Files.Count
fso.DeleteFile base & "\nothing*.txt": Chk "DeleteFile no match"
x = fso.GetFile(base & "\nothing.txt"): Chk "GetFile missing"
x = fso.GetFolder(base & "\nothing"): Chk "GetFolder missing"
fso.DeleteFolder base & "\nothing": Chk "DeleteFolder missing"
x = fso.GetDrive("Q:"): Chk "GetDrive without a folder"
fso.DeleteFolder base
WScript.Echo fso.FolderExists(base)
