# Installing and packaging come here.
