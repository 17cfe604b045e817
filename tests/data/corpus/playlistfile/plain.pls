[playlist]
File2=b.mp3
File1=C:\Music\a.mp3
NumberOfEntries=2
Version=2
