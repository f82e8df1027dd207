FileHeader "KVT Object Text v2.01","Coordinate Document"
begin
	FileInfo "Application","Golden version 1.0"
	FileInfo "Description","a \"quoted\" \\ text\n"
end
PointList 
begin
	Point "A",1,2,3,"","",""
	begin
		AttributeList 
		begin
			Attribute "a","b