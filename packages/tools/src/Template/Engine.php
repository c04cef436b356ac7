<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

/** Asks the extension what it thinks of a template. */
final readonly class Engine
{
    /** What an include may read while a program serves pages, but not while its templates are checked. */
    private const array CLOSED = ['data', 'ftp', 'ftps', 'http', 'https', 'php'];

    /**
     * What makes the text's page null; null when nothing does.
     *
     * @param array<mixed> $data
     */
    public function fault(string $text, array $data): ?string
    {
        return $this->faultWithName($text, $data, true, new Folders([], []))[0] ?? null;
    }

    /**
     * What makes the page null, and the name of what is at fault: the template, or a file as it was included.
     *
     * @param array<mixed> $data
     * @param Folders $folders with files to include
     * @return ?array{string, string}
     */
    public function faultWithName(string $template, array $data, bool $isText, Folders $folders): ?array
    {
        $warning = $this->warning($template, $data, $isText, $folders);
        $own = ' in ' . substr($template, 0, strcspn($template, "\0"));
        if ($warning === null || str_ends_with($warning, $own)) {
            return $warning === null ? null : [substr($warning, 0, -strlen($own)), $template];
        }
        $end = strrpos($warning, ' in ');

        return $end === false ? [$warning, $template] : [substr($warning, 0, $end), substr($warning, $end + strlen(' in '))];
    }

    /** @param array<mixed> $data */
    private function warning(string $template, array $data, bool $isText, Folders $folders): ?string
    {
        $warnings = [];
        set_error_handler(function (int $level, string $message) use (&$warnings): bool {
            $warnings[] = $message;

            return true;
        });
        $path = set_include_path(implode(PATH_SEPARATOR, $folders->paths));
        $closed = array_intersect(self::CLOSED, stream_get_wrappers());
        array_map(stream_wrapper_unregister(...), $closed);
        try {
            return zorvel($template, $data, $isText) === null ? end($warnings) ?: null : null;
        } finally {
            array_map(stream_wrapper_restore(...), $closed);
            set_include_path((string) $path);
            restore_error_handler();
        }
    }
}
