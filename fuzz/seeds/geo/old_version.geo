FileHeader "KVT Object Text v1.0","Coordinate Document"
begin
	FileInfo "Application","Golden version 1.0"
	FileInfo "Description","a \"quoted\" \\ text\n"
end
PointList 
LineList 
