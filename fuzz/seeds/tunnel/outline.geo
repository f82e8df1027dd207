gFileHeader "KVT Object Text v2.01","Coordinate Document"
begin
	FileInfo "Application","Golden version 1.0"
	FileInfo "SerialNo","4711"
	FileInfo "Author","Surveyor"
	FileInfo "Company","Company"
	FileInfo "Description",""
end
PointList 
begin
	Point "",0,4,0,"","",""
	Point "",0,-4,0,"","",""
	Point "",3,-4,0,"TC","R","5"
	Point "",6,0,0,"","R","5.25"
	Point "",3,4,0,"","",""
	Point "",0,4,0,"","",""
end
LineList 
AttributeList 
