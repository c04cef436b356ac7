<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\Attributes\After;
use PHPUnit\Framework\Attributes\Before;

/** Each test works in an empty folder of its own. */
trait TemporaryFolder
{
    private string $folder;

    private string $outside;

    #[Before]
    protected function enterFolder(): void
    {
        $this->outside = (string) getcwd();
        $this->folder = sys_get_temp_dir() . '/zorvel-tools-' . bin2hex(random_bytes(6));
        mkdir($this->folder);
        chdir($this->folder);
    }

    #[After]
    protected function leaveFolder(): void
    {
        chdir($this->outside);
        exec('rm -rf ' . escapeshellarg($this->folder));
    }

    /** @param array<string, string> $files */
    private function write(array $files): void
    {
        foreach ($files as $name => $text) {
            is_dir(dirname($name)) || mkdir(dirname($name), recursive: true);
            file_put_contents($name, $text);
        }
    }
}
